// The index of places follows its drawing.

#include "tests/host/render/DrawnList.h"

#include "host/drawing/LayoutEditing.h"
#include "host/drawing/geometry/Extents.h"
#include "host/drawing/selection/Candidates.h"
#include "host/drawing/selection/EntityIndex.h"

#include <gtest/gtest.h>

#include <random>

namespace render {

namespace {

constexpr int Width = 1000;

class EntityIndexTest : public testing::Test
{
protected:
    int number(int end) { return std::uniform_int_distribution(0, end - 1)(m_random); }
    double place() { return number(Width); }
    Point point() { return {place(), place(), 0}; }
    void add()
    {
        switch (number(20)) {
        case 0:
            m_entities.push_back(m_test.add(u"RAY", u"AcDbRay", {{10, point()}, {11, Point{1, 0, 0}}}));
            break;
        case 1:
            m_entities.push_back(m_test.line({0, 0, 0}, point())); // a long one
            break;
        default:
            m_entities.push_back(m_test.add(u"CIRCLE", u"AcDbCircle", {{10, point()}, {40, 1.0 + number(9)}}));
        }
    }
    void edit()
    {
        drawing::Journal &journal = m_test.drawing.database().journal();
        const RecordId entity = m_entities[static_cast<std::size_t>(number(static_cast<int>(m_entities.size())))];
        const bool isGone = m_test.drawing.database().record(entity).isGone();
        switch (number(5)) {
        case 0:
            journal.undo();
            break;
        case 1:
            journal.redo();
            break;
        case 2:
            if (!isGone)
                m_test.drawing.database().erase(entity);
            break;
        default:
            add();
        }
        journal.nextStep();
    }
    // As who looks at each entity finds them.
    std::vector<RecordId> searched(const geometry::Box &box)
    {
        std::vector<RecordId> found = selection::allEntities(m_test.drawing);
        std::erase_if(found, [&](RecordId entity) {
            const auto own = geometry::extentsOf(m_test.drawing, entity);
            return own && (own->maximum.x < box.minimum.x || own->minimum.x > box.maximum.x ||
                           own->maximum.y < box.minimum.y || own->minimum.y > box.maximum.y);
        });
        return found;
    }

    TestDrawing m_test;
    selection::EntityIndex m_index{m_test.drawing};
    std::vector<RecordId> m_entities;
    std::mt19937 m_random{3};
};

} // namespace

TEST_F(EntityIndexTest, FindsAfterAnyEditsWhatASearchOfAllEntitiesFinds)
{
    for (int i = 0; i < 6000; ++i) // so that there are more cells than a long line stands in
        add();
    for (int round = 0; round < 40; ++round) {
        for (int edits = number(5); edits >= 0; --edits)
            edit();
        for (const double size : {0.0, 30.0, 500.0}) {
            const geometry::Vector corner{place(), place(), 0};
            const geometry::Box box{corner, corner + geometry::Vector{size, size, 0}};
            ASSERT_EQ(m_index.entitiesNear(box), searched(box)) << round << ' ' << size;
        }
    }
}

TEST_F(EntityIndexTest, IsMadeInPartsAndFindsTheSame)
{
    for (int i = 0; i < 60000; ++i)
        add();
    const geometry::Box box{{100, 100, 0}, {200, 200, 0}};
    ASSERT_TRUE(m_index.prepare());
    EXPECT_EQ(m_index.entitiesNear(box), searched(box)); // asked when a part is there
    EXPECT_FALSE(m_index.prepare());
    for (int i = 0; i < 40000; ++i)
        add(); // so many that it is made anew
    ASSERT_TRUE(m_index.prepare());
    add(); // a change comes between
    int parts = 0;
    while (m_index.prepare())
        ++parts;
    EXPECT_GE(parts, 2);
    EXPECT_EQ(m_index.entitiesNear(box), searched(box));
}

TEST_F(EntityIndexTest, FollowsManyChangesInPartsAndFindsTheSameWhenAskedBetweenThem)
{
    constexpr std::size_t Many = 40000; // less than a part of all, more than is renewed at a time
    for (std::size_t i = 0; i < 5 * Many; ++i)
        add();
    const geometry::Box box{{100, 100, 0}, {200, 200, 0}};
    EXPECT_EQ(m_index.entitiesNear(box), searched(box));
    m_test.drawing.database().journal().nextStep();
    for (std::size_t i = 0; i < Many; ++i)
        m_test.drawing.database().erase(m_entities[i]);
    ASSERT_TRUE(m_index.prepare());
    EXPECT_EQ(m_index.entitiesNear(box), searched(box));
    EXPECT_FALSE(m_index.prepare());
    m_test.drawing.database().journal().undo();
    ASSERT_TRUE(m_index.prepare());
    add(); // a change comes between
    ASSERT_TRUE(m_index.prepare());
    while (m_index.prepare()) {
    }
    EXPECT_EQ(m_index.entitiesNear(box), searched(box));
}

TEST_F(EntityIndexTest, KnowsTheExtentsOfEachEntity)
{
    for (int i = 0; i < 300; ++i)
        add();
    m_index.prepare();
    for (int i = 0; i < 20; ++i)
        add();
    for (const RecordId entity : selection::allEntities(m_test.drawing))
        ASSERT_EQ(m_index.extentsOf(entity), geometry::extentsOf(m_test.drawing, entity).value_or(geometry::Box()));
}

TEST_F(EntityIndexTest, IsEmptyForAnEmptyDrawingAndGrowsBeyondItsFirstBounds)
{
    EXPECT_EQ(m_index.entitiesNear({{0, 0, 0}, {1, 1, 0}}), std::vector<RecordId>());
    const RecordId first = m_test.line({0, 0, 0}, {1, 1, 0});
    EXPECT_EQ(m_index.entitiesNear({{0, 0, 0}, {1, 1, 0}}), std::vector{first});
    const RecordId far = m_test.line({1e6, 1e6, 0}, {2e6, 1e6, 0});
    EXPECT_EQ(m_index.entitiesNear({{1.5e6, 1e6 - 1, 0}, {1.6e6, 1e6 + 1, 0}}), std::vector{far});
    EXPECT_EQ(m_index.entitiesNear({{0, 0, 0}, {1, 1, 0}}), std::vector{first});
}

TEST_F(EntityIndexTest, FollowsTheSheetThatIsCurrent)
{
    for (int i = 0; i < 100; ++i)
        add();
    const RecordId onPaper = m_test.line({-50, -50, 0}, {-40, -50, 0}, {{67, std::int64_t{1}}, {8, u"0"}});
    const geometry::Box there{{-51, -51, 0}, {-39, -49, 0}}, all{{-100, -100, 0}, {2 * Width, 2 * Width, 0}};
    const drawing::Layout first = drawing::findLayout(m_test.drawing.database(), u"Layout1").value();
    const drawing::Layout second = drawing::addLayout(m_test.drawing, first, u"Second").value();
    EXPECT_EQ(m_index.entitiesNear(there), searched(there));
    ASSERT_TRUE(drawing::activateLayout(m_test.drawing, second));
    EXPECT_EQ(m_index.entitiesNear(all), searched(all));
    ASSERT_TRUE(drawing::activateLayout(m_test.drawing, first));
    EXPECT_EQ(m_index.entitiesNear(all), searched(all));
    const std::vector<RecordId> found = m_index.entitiesNear(there);
    EXPECT_NE(std::find(found.begin(), found.end(), onPaper), found.end());
}

TEST_F(EntityIndexTest, ABlockThatChangesMovesWhatIsInserted)
{
    const RecordId block = drawing::addBlock(m_test.drawing.database(), m_test.drawing.tables(), {u"B"});
    const RecordId insert = m_test.insert(u"B");
    m_test.addTo(block, u"POINT", u"AcDbPoint", {{10, Point{5, 5, 0}}});
    EXPECT_EQ(m_index.entitiesNear({{4, 4, 0}, {6, 6, 0}}), std::vector{insert});
    EXPECT_EQ(m_index.entitiesNear({{90, 90, 0}, {99, 99, 0}}), std::vector<RecordId>());
    m_test.addTo(block, u"POINT", u"AcDbPoint", {{10, Point{95, 95, 0}}});
    EXPECT_EQ(m_index.entitiesNear({{90, 90, 0}, {99, 99, 0}}), std::vector{insert});
}

} // namespace render
