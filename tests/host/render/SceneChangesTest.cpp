// A large scene that is kept in step with its drawing.

#include "tests/host/render/DrawnList.h"

#include "host/render/Changes.h"
#include "host/render/Scene.h"

#include <gtest/gtest.h>

namespace render {

namespace {

constexpr int Size = 300, Rows = 80; // squared more than scenes that are made anew each time

class SceneChanges : public testing::Test
{
protected:
    SceneChanges()
    {
        for (int row = 0; row < Rows; ++row)
            for (int column = 0; column < Rows; ++column)
                m_lines.push_back(m_test.line({3.0 * column, 3.0 * row, 0}, {3.0 * column + 2, 3.0 * row + 2, 0}));
        m_scene = Scene::ofModel(m_test.drawing, {});
        m_seen = database().journal().changeCount();
    }

    drawing::Database &database() { return m_test.drawing.database(); }
    bool follow()
    {
        const auto records = database().journal().changedSince(m_seen);
        const auto entities = records ? changedModelEntities(m_test.drawing, *records) : std::nullopt;
        m_seen = database().journal().changeCount();
        return entities && m_scene.replace(m_test.drawing, {}, *entities);
    }
    static QImage painted(const Scene &scene)
    {
        QImage image(Size, Size, QImage::Format_RGB32);
        image.fill(Qt::white);
        DeviceView view;
        view.toDevice = QTransform(1, 0, 0, -1, 20, Size - 20);
        view.pixelsPerMillimetre = 0;
        scene.paint(view, image);
        return image;
    }
    void expectAsMadeAnew()
    {
        const Scene anew = Scene::ofModel(m_test.drawing, {});
        EXPECT_EQ(painted(m_scene), painted(anew));
        EXPECT_EQ(m_scene.bounds(), anew.bounds());
    }
    void change(RecordId line, const Point &to)
    {
        GroupList groups = database().groups(line);
        for (Group &group : groups)
            if (group.code == 11)
                group.value = to;
        ASSERT_TRUE(database().replace(line, groups));
    }

    TestDrawing m_test;
    std::vector<RecordId> m_lines;
    Scene m_scene;
    std::uint64_t m_seen = 0;
};

} // namespace

TEST_F(SceneChanges, WhatIsAddedChangedAndErasedLooksAsInASceneMadeAnew)
{
    m_test.line({-10, 100, 0}, {250, 120, 0});
    change(m_lines[700], {200, 10, 0});
    database().erase(m_lines[701]);
    EXPECT_TRUE(follow());
    expectAsMadeAnew();
}

TEST_F(SceneChanges, ChangesOneAfterTheOtherAndUndoAreFollowed)
{
    change(m_lines[10], {200, 200, 0});
    EXPECT_TRUE(follow());
    change(m_lines[10], {10, 230, 0});
    database().erase(m_lines[11]);
    EXPECT_TRUE(follow());
    expectAsMadeAnew();
    database().journal().undo();
    EXPECT_TRUE(follow());
    expectAsMadeAnew();
}

TEST_F(SceneChanges, EntitiesAreFoundWhereTheyAreNow)
{
    change(m_lines[0], {-15, -15, 0});
    EXPECT_TRUE(follow());
    EXPECT_EQ(m_scene.entitiesIn(QRectF(-16, -16, 2, 2), 10), std::vector<RecordId>{m_lines[0]});
    EXPECT_EQ(m_scene.entitiesIn(QRectF(1.5, 1.5, 0.2, 0.2), 10), std::vector<RecordId>());
}

TEST_F(SceneChanges, ALayerOrABlockMakesEverythingAnew)
{
    m_test.layer(u"Walls", {{62, std::int64_t{1}}});
    EXPECT_FALSE(follow());
}

TEST_F(SceneChanges, SoDoManyChangesAtATime)
{
    for (std::size_t i = 0; i < m_lines.size() / 10; ++i)
        database().erase(m_lines[i]);
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
