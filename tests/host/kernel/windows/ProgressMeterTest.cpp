#include "host/kernel/HostServices.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

namespace {

class RecordingInterface final : public UserInterface
{
public:
    void showProgress(const Progress &progress) override { shown.push_back(progress); }
    void endProgress() override { ++ended; }

    std::vector<Progress> shown;
    int ended = 0;
};

class ProgressMeterTest : public testing::Test
{
protected:
    ProgressMeterTest() { m_services.userInterface = &m_interface; }

    ProgressMeter &meter() { return m_services.progressMeter; }

    HostServices m_services;
    RecordingInterface m_interface;
};

} // namespace

TEST_F(ProgressMeterTest, RefusesPositionsBeforeItsStartAfterItsEndAndBelow0)
{
    EXPECT_FALSE(meter().set(1));
    meter().start(u"Copying"_qs);
    EXPECT_FALSE(meter().set(-1));
    EXPECT_TRUE(meter().set(0));
    EXPECT_TRUE(meter().set(32767));
    meter().end();
    EXPECT_FALSE(meter().set(1));
}

TEST_F(ProgressMeterTest, ShowsItselfAtOnceWhenStarted)
{
    meter().start(u"Copying"_qs);
    meter().start(u"Moving"_qs);
    ASSERT_EQ(m_interface.shown.size(), 2u);
    EXPECT_EQ(m_interface.shown[1].label, u"Moving"_qs);
    EXPECT_EQ(m_interface.shown[1].position, 0);
    EXPECT_EQ(m_interface.shown[1].maximum, 100);
}

TEST_F(ProgressMeterTest, NeverShowsItselfMoreOftenThanAScreenCan)
{
    meter().start(u"Copying"_qs);
    QElapsedTimer time;
    time.start();
    int steps = 0;
    for (; time.elapsed() < 200; ++steps)
        meter().set(steps % 32768);
    const auto shown = m_interface.shown.size();
    EXPECT_GT(steps, 1000);
    EXPECT_GE(shown, 3u);
    EXPECT_LE(shown, 2u + std::size_t(time.elapsed()) / 16);
}

TEST_F(ProgressMeterTest, WidensItsRangeForLargerPositions)
{
    meter().start(u"Copying"_qs);
    meter().set(5000);
    meter().set(20);
    while (m_interface.shown.size() < 2)
        meter().set(20);
    EXPECT_EQ(m_interface.shown.back().maximum, 5000);
    EXPECT_EQ(m_interface.shown.back().position, 20);
    meter().start(u"Anew"_qs);
    EXPECT_EQ(m_interface.shown.back().maximum, 100);
}

TEST_F(ProgressMeterTest, APositionThatCameTooSoonCanBeShownLater)
{
    meter().start(u"Copying"_qs);
    meter().set(40);
    ASSERT_EQ(m_interface.shown.size(), 1u);
    QElapsedTimer time;
    for (time.start(); time.elapsed() < 20;)
        ;
    meter().showLatest();
    ASSERT_EQ(m_interface.shown.size(), 2u);
    EXPECT_EQ(m_interface.shown.back().position, 40);
    for (time.restart(); time.elapsed() < 20;)
        ;
    meter().showLatest();
    meter().end();
    meter().showLatest();
    EXPECT_EQ(m_interface.shown.size(), 2u) << "nothing new";
}

TEST_F(ProgressMeterTest, EndsOnce)
{
    meter().end();
    EXPECT_EQ(m_interface.ended, 0);
    meter().start(u"Copying"_qs);
    meter().end();
    meter().end();
    EXPECT_EQ(m_interface.ended, 1);
}

TEST_F(ProgressMeterTest, IsWrittenToTheTranscriptStepByStep)
{
    const QTemporaryDir folder;
    m_services.transcript = Transcript(folder.filePath(u"transcript"_qs));
    meter().set(3);
    meter().start(u"Copying"_qs);
    meter().set(50);
    meter().end();
    QFile file(folder.filePath(u"transcript"_qs));
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    EXPECT_EQ(file.readAll(), "{\"event\":\"progress\",\"call\":\"start\",\"label\":\"Copying\",\"position\":0}\n"
                              "{\"event\":\"progress\",\"call\":\"set\",\"label\":\"Copying\",\"position\":50}\n"
                              "{\"event\":\"progress\",\"call\":\"end\",\"label\":\"Copying\",\"position\":50}\n");
}
