#pragma once

#include "host/drawing/Drawing.h"

#include <QVarLengthArray>

#include <memory>
#include <string>
#include <vector>

namespace drawing {

// A record's items as they are read, without extended data.
inline constexpr qsizetype UsualItems = 24, UsualDefaults = 8; // of an entity, at most; more only cost more
using RecordedItems = QVarLengthArray<Item, UsualItems>;

// How the listing of a record is put together: the order of its items, and those that are not in it. Nearly all records
// of a type have the same groups, and so the same plan, which is kept for the next.
class ListingPlan
{
public:
    using Order = QVarLengthArray<int, UsualItems + UsualDefaults>;

    static std::shared_ptr<const ListingPlan> of(const Drawing &drawing, RecordId id, const RecordedItems &items);

    ListingPlan(const ListingPlan &) = delete; // the derived items point into it
    ListingPlan &operator=(const ListingPlan &) = delete;

    // Of the listing's items: places in the record's from 0 up, those of derived ones from -1 down.
    const Order &order() const { return m_order; }
    const Item &derived(int number) const { return m_derived[-1 - number]; }

    // How many of the first items are fixed; see EntityListing.
    std::size_t headSize() const { return m_headSize; }

    // Whether points with two coordinates are listed with three.
    bool hasSpatialPoints() const { return m_hasSpatialPoints; }

private:
    friend class ListingPlanner;

    // What a plan is made from.
    struct Subject
    {
        std::uint32_t drawing;
        NameId type;
        RecordKind kind;
        std::int64_t flags; // group 70 of types that come in several kinds; else 0
        bool isInModelSpace;
        bool operator==(const Subject &) const = default;
    };
    struct Shape
    {
        int code;
        ValueKind kind;
        std::string text; // of those that tell what the next groups are
    };

    explicit ListingPlan(const Subject &subject) : m_subject(subject) {}
    void noteShapes(const RecordedItems &items);
    static Subject subject(const Drawing &drawing, RecordId id, const RecordedItems &items);
    bool fits(const Subject &subject, const RecordedItems &items) const;

    Order m_order;
    QVarLengthArray<Item, UsualDefaults> m_derived;
    std::size_t m_headSize = 0;
    bool m_hasSpatialPoints = false;
    std::string m_layout; // what the group 410 points to when the record has none
    Subject m_subject;
    std::vector<Shape> m_shapes; // of a plan that is kept
    bool m_isForOthers = true;   // nothing but the subject and the shapes went into it
};

} // namespace drawing
