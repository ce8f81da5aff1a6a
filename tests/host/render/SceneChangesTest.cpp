// A large scene that is kept in step with its drawing.

#include "tests/host/render/DrawnList.h"

#include "host/drawing/ChangedEntities.h"
#include "host/drawing/HeaderVariables.h"
#include "host/render/Scene.h"

#include <gtest/gtest.h>

#include <random>

namespace render {

namespace {

constexpr int Size = 300, Rows = 100; // squared more than scenes that are made anew each time
constexpr double Width = 3.0 * Rows;

class SceneChanges : public testing::Test
{
protected:
    SceneChanges()
    {
        m_diagonal = m_test.line({-100, -100, 0}, {Width + 100, Width + 100, 0}); // so that the size stays what it is
        for (int row = 0; row < Rows; ++row)
            for (int column = 0; column < Rows; ++column)
                m_entities.push_back(m_test.line({3.0 * column, 3.0 * row, 0}, {3.0 * column + 2, 3.0 * row + 2, 0}));
        m_scene = Scene::ofModel(m_test.drawing, {});
        m_seen = journal().changeCount();
    }

    drawing::Database &database() { return m_test.drawing.database(); }
    drawing::Journal &journal() { return database().journal(); }
    bool follow()
    {
        const auto records = journal().changedSince(m_seen);
        const auto entities = records ? drawing::changedEntities(m_test.drawing, *records) : std::nullopt;
        m_seen = journal().changeCount();
        return entities && m_scene.replace(m_test.drawing, {}, *entities);
    }
    static QImage painted(const Scene &scene)
    {
        QImage image(Size, Size, QImage::Format_RGB32);
        image.fill(Qt::white);
        DeviceView view;
        view.toDevice = QTransform(1, 0, 0, -1, 0, Size);
        view.pixelsPerMillimetre = 0;
        scene.paint(view, image);
        return image;
    }
    void expectAsMadeAnew()
    {
        const Scene anew = Scene::ofModel(m_test.drawing, {});
        ASSERT_EQ(painted(m_scene), painted(anew));
        ASSERT_EQ(m_scene.bounds(), anew.bounds());
        for (int i = 0; i < 20; ++i) {
            const QRectF window(place(), place(), 20, 20);
            ASSERT_EQ(m_scene.entitiesIn(window, 1000), anew.entitiesIn(window, 1000));
        }
    }
    void change(RecordId entity, int code, const drawing::GroupValue &value)
    {
        GroupList groups = database().groups(entity);
        for (Group &group : groups)
            if (group.code == code)
                group.value = value;
        ASSERT_TRUE(database().replace(entity, groups));
    }
    int number(int end) { return std::uniform_int_distribution(0, end - 1)(m_random); }
    double place() { return number(static_cast<int>(Width)); }
    RecordId anyEntity() { return m_entities[static_cast<std::size_t>(number(static_cast<int>(m_entities.size())))]; }
    void add()
    {
        const GroupList red{{62, std::int64_t{number(7) + 1}}};
        if (number(2) == 0)
            m_entities.push_back(m_test.line({place(), place(), 0}, {place(), place(), 0}, red));
        else
            m_entities.push_back(
                m_test.add(u"CIRCLE", u"AcDbCircle", {{10, Point{place(), place(), 0}}, {40, 1.0 + number(20)}}, red));
    }
    void editAtRandom()
    {
        const RecordId entity = anyEntity();
        switch (number(6)) {
        case 0:
            return (void)journal().undo(1);
        case 1:
            return (void)journal().redo(1);
        case 2:
            if (!database().record(entity).isGone())
                database().erase(entity);
            return;
        case 3:
            if (!database().record(entity).isGone())
                change(entity, 10, Point{place(), place(), 0});
            return;
        default:
            add();
        }
    }

    TestDrawing m_test;
    RecordId m_diagonal;
    std::vector<RecordId> m_entities;
    Scene m_scene;
    std::uint64_t m_seen = 0;
    std::mt19937 m_random{7};
};

} // namespace

TEST_F(SceneChanges, ASceneThatFollowsRandomEditsIsAsOneMadeAnew)
{
    for (int round = 0; round < 30; ++round) {
        for (int edits = number(6); edits >= 0; --edits) {
            editAtRandom();
            journal().nextStep();
        }
        ASSERT_TRUE(follow());
        ASSERT_NO_FATAL_FAILURE(expectAsMadeAnew()) << round;
    }
}

TEST_F(SceneChanges, AnEntityThatIsChangedStaysBelowThoseDrawnAfterIt)
{
    change(m_entities[10], 11, Point{200, 200, 0});
    const RecordId circle =
        m_test.add(u"CIRCLE", u"AcDbCircle", {{10, Point{200, 200, 0}}, {40, 9.0}}, {{62, std::int64_t{1}}});
    EXPECT_TRUE(follow());
    change(m_entities[10], 11, Point{209, 200, 0});
    EXPECT_TRUE(follow());
    expectAsMadeAnew();
    const auto found = m_scene.entitiesIn(QRectF(205, 195, 8, 8), 1000);
    ASSERT_TRUE(found);
    EXPECT_LT(std::find(found->begin(), found->end(), m_entities[10]), std::find(found->begin(), found->end(), circle));
}

TEST_F(SceneChanges, EntitiesAreFoundWhereTheyAreNow)
{
    change(m_entities[0], 10, Point{-15, -15, 0});
    change(m_entities[0], 11, Point{-16, -16, 0});
    EXPECT_TRUE(follow());
    EXPECT_EQ(m_scene.entitiesIn(QRectF(-15.5, -15.5, 1, 0.2), 10), (std::vector{m_diagonal, m_entities[0]}));
    EXPECT_EQ(m_scene.entitiesIn(QRectF(1.5, 1.5, 0.2, 0.2), 10), std::vector{m_diagonal});
}

TEST_F(SceneChanges, AVariableThatIsNotSeenChangesNothingButLinetypeScaleMakesAllAnew)
{
    drawing::setVariable(database(), "$ORTHOMODE", {70, std::int64_t{1}});
    journal().nextStep();
    drawing::setVariable(database(), "$ORTHOMODE", {70, std::int64_t{0}});
    EXPECT_TRUE(follow());
    drawing::setVariable(database(), "$LTSCALE", {40, 2.0});
    EXPECT_FALSE(follow());
}

TEST_F(SceneChanges, ALayerMakesEverythingAnew)
{
    m_test.layer(u"Walls", {{62, std::int64_t{1}}});
    EXPECT_FALSE(follow());
}

TEST_F(SceneChanges, SoDoManyChangesAtATime)
{
    for (std::size_t i = 0; i < m_entities.size() / 10; ++i)
        database().erase(m_entities[i]);
    EXPECT_FALSE(follow());
}

TEST_F(SceneChanges, AndADrawingThatHasGrownFarBeyondItsFormerSize)
{
    m_test.line({0, 0, 0}, {100 * Width, 0, 0});
    EXPECT_FALSE(follow());
}

TEST_F(SceneChanges, AndAnyChangeOfASmallDrawing)
{
    TestDrawing small;
    const RecordId line = small.line({0, 0, 0}, {1, 1, 0});
    Scene scene = Scene::ofModel(small.drawing, {});
    EXPECT_FALSE(scene.replace(small.drawing, {}, {line}));
}

} // namespace render
