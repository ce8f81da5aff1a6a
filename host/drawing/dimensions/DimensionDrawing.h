#pragma once

#include "host/drawing/dimensions/DimensionStyle.h"

namespace drawing {

// The block that shows a dimension is made from what the dimension measures, says and is drawn by.

enum class TextPlace : std::uint8_t {
    Usual,  // unless the dimension's flags say that its text was put somewhere
    AsGiven // where the dimension says that it stands
};

// Whether it is a dimension of a kind that has a picture made for it, and all that it measures.
bool isDrawable(const GroupList &dimension);

// Whether what the dimension shows may differ: it measures or says something else, or is drawn in another way.
bool showsOther(const GroupList &before, const GroupList &after);

// Gives a dimension its picture, the place of its text and its measurement. The block that only this one shows is
// filled anew; any other stays what it is. False when it is not drawable or something cannot be written.
bool drawDimension(Drawing &drawing, RecordId dimension, TextPlace place = TextPlace::Usual);
bool drawDimension(Drawing &drawing, RecordId dimension, const DimensionStyle &style,
                   TextPlace place = TextPlace::Usual);

} // namespace drawing
