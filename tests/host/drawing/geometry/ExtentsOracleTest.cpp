#include "host/drawing/geometry/Extents.h"
#include "tests/support/PythonScript.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>

namespace geometry {
namespace {

constexpr int OfEachKind = 100; // of 21 kinds

double difference(const Box &a, const Box &b)
{
    double result = 0;
    for (const auto axis : {&Vector::x, &Vector::y, &Vector::z})
        result = std::max(
            {result, std::abs(a.minimum.*axis - b.minimum.*axis), std::abs(a.maximum.*axis - b.maximum.*axis)});
    return result;
}

std::string describe(const Box &box)
{
    std::ostringstream text;
    text << box.minimum.x << ' ' << box.minimum.y << ' ' << box.minimum.z << "  " << box.maximum.x << ' '
         << box.maximum.y << ' ' << box.maximum.z;
    return text.str();
}

// Random entities of every kind, with the boxes that formulas of an independent library give for them.
TEST(ExtentsOracle, DifferByLessThanABillionthOfTheSize)
{
    const QTemporaryDir folder;
    const QString drawingPath = folder.filePath(QStringLiteral("random.dxf")),
                  boxesPath = folder.filePath(QStringLiteral("boxes.txt"));
    ASSERT_EQ(outputOfScript(QStringLiteral(RANDOM_ENTITIES), {drawingPath, boxesPath, QString::number(OfEachKind)}),
              "status 0\n");

    const drawing::Drawing drawing(drawingPath);
    std::ifstream boxes(boxesPath.toStdString());
    std::map<std::string, int> kinds;
    std::string handle, type;
    for (Box wanted; boxes >> handle >> type >> wanted.minimum.x >> wanted.minimum.y >> wanted.minimum.z >>
                     wanted.maximum.x >> wanted.maximum.y >> wanted.maximum.z;) {
        ++kinds[type];
        const auto id = drawing.database().find({std::stoull(handle, nullptr, 16)});
        const auto box = extentsOf(drawing, id);
        ASSERT_TRUE(box) << type << ' ' << handle;
        const double size = length(wanted.maximum - wanted.minimum);
        // Points have no size; and no number of a file is exacter than its last digit.
        EXPECT_LE(difference(*box, wanted), 1e-9 * size + 1e-12)
            << type << ' ' << handle << ": " << describe(*box) << "\n not " << describe(wanted);
    }
    EXPECT_EQ(kinds.size(), 17);
    for (const auto &[name, count] : kinds)
        EXPECT_GE(count, OfEachKind) << name;
}

} // namespace
} // namespace geometry
