#pragma once

#include "host/drawing/Blocks.h"
#include "host/render/DisplayListBuilder.h"
#include "host/render/Spaces.h"

#include <string>

namespace render {

using drawing::Group;
using drawing::GroupList;
using drawing::Handle;
using drawing::Point;
using drawing::RecordId;

// An empty drawing, to which a test adds what it needs.
class TestDrawing
{
public:
    drawing::Drawing drawing;

    // The groups of an entity, without those that all have.
    RecordId add(std::u16string type, std::u16string subclass, const GroupList &own, const GroupList &common = {})
    {
        return addBefore(drawing.database().endOf(drawing::ensureEntities(drawing.database())), type, subclass, own,
                         common);
    }
    RecordId addTo(RecordId block, std::u16string type, std::u16string subclass, const GroupList &own,
                   const GroupList &common = {})
    {
        return addBefore(drawing.database().endOf(block), type, subclass, own, common);
    }
    RecordId line(const Point &from, const Point &to, const GroupList &common = {})
    {
        return add(u"LINE", u"AcDbLine", {{10, from}, {11, to}}, common);
    }
    RecordId insert(std::u16string block, const GroupList &own = {}, const GroupList &common = {})
    {
        GroupList groups{{2, std::move(block)}, {10, Point{}}};
        groups.insert(groups.end(), own.begin(), own.end());
        return add(u"INSERT", u"AcDbBlockReference", groups, common);
    }
    RecordId layer(std::u16string name, const GroupList &own)
    {
        GroupList groups{{0, u"LAYER"}, {100, u"AcDbSymbolTableRecord"}, {100, u"AcDbLayerTableRecord"}, {2, name}};
        groups.insert(groups.end(), own.begin(), own.end());
        return drawing.tables().add(drawing::known::Layer, groups);
    }
    RecordId linetype(std::u16string name, const std::vector<double> &lengths)
    {
        GroupList groups{{0, u"LTYPE"}, {100, u"AcDbSymbolTableRecord"}, {100, u"AcDbLinetypeTableRecord"}, {2, name}};
        Group element{49, 0.0};
        for (const double length : lengths) {
            element.value = length;
            groups.push_back(element);
        }
        return drawing.tables().add(drawing::known::Linetype, groups);
    }

    // What the model looks like with a drawing unit for each unit of the page.
    DisplayList list(const Surface &surface = {}) const
    {
        AppearanceResolver appearances(drawing, surface);
        Projection projection;
        projection.window = QRectF(0, 0, 100, 100);
        DisplayList result;
        DisplayListBuilder builder(drawing, appearances, projection, result);
        for (const RecordId entity : modelEntities(drawing))
            builder.add(entity);
        return result;
    }

private:
    RecordId addBefore(RecordId end, const std::u16string &type, const std::u16string &subclass, const GroupList &own,
                       const GroupList &common)
    {
        GroupList groups{{0, type}, {100, u"AcDbEntity"}};
        groups.insert(groups.end(), common.begin(), common.end());
        groups.push_back({100, subclass});
        groups.insert(groups.end(), own.begin(), own.end());
        return drawing.database().add(drawing::RecordKind::Entity, groups, end);
    }
};

inline double lengthOf(const DisplayList &list, const DisplayItem &item)
{
    double length = 0;
    const auto points = list.points(item);
    for (std::size_t i = 1; i < points.size(); ++i)
        length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    return length;
}

inline double totalLength(const DisplayList &list)
{
    double length = 0;
    for (const DisplayItem &item : list.items())
        length += lengthOf(list, item);
    return length;
}

} // namespace render
