// Answers that are pointed at, and what a window is told of a request.

#include "host/kernel/HostServices.h"
#include "host/kernel/input/Prompter.h"
#include "lisp/LispStatus.h"

#include <gtest/gtest.h>

#include <deque>

namespace {

class Pointing final : public UserInput
{
public:
    InputReply request(const InputRequest &request) override
    {
        requests.push_back(request);
        if (replies.empty())
            return {};
        const InputReply reply = replies.front();
        replies.pop_front();
        return reply;
    }

    std::deque<InputReply> replies;
    std::vector<InputRequest> requests;
};

InputReply picked(double x, double y)
{
    return {InputReply::Kind::Picked, {}, {x, y, 0}};
}

class PickedPlaces : public testing::Test
{
protected:
    PickedPlaces() { m_services.input = &m_person; }

    HostServices m_services;
    Pointing m_person;
    lisp::Machine m_machine;
    Prompter m_prompter{m_services, m_machine};
    const LispPoint m_base{1, 1, 0};
};

} // namespace

TEST_F(PickedPlaces, APointIsTakenAsItIsAndTheRequestTellsItsBase)
{
    m_person.replies = {picked(0.1, 1.0 / 3)};
    LispPoint point{};
    EXPECT_EQ(m_prompter.point(u"Point: ", &m_base, point), StatusNormal);
    EXPECT_EQ(point.y, 1.0 / 3);
    EXPECT_EQ(m_prompter.lastPoint.x, 0.1);
    ASSERT_TRUE(m_person.requests[0].base);
    EXPECT_EQ(m_person.requests[0].base->x, 1);
}

TEST_F(PickedPlaces, ADistanceIsFromTheFirstPlaceWhichIsTheSecondRequestsBase)
{
    m_person.replies = {picked(0, 0), picked(3, 4)};
    double distance = 0;
    EXPECT_EQ(m_prompter.distance(u"Distance: ", nullptr, distance), StatusNormal);
    EXPECT_EQ(distance, 5);
    EXPECT_FALSE(m_person.requests[0].base);
    ASSERT_TRUE(m_person.requests[1].base);
    EXPECT_EQ(m_person.requests[1].base->x, 0);
}

TEST_F(PickedPlaces, MovesAreToldToWhoAsksForThem)
{
    const InputReply move{InputReply::Kind::Moved, {}, {5, 6, 0}};
    m_person.replies = {move, picked(1, 2), move};
    Prompter::Event event{};
    EXPECT_EQ(m_prompter.event(Prompter::Moves::Ignored, event), StatusNormal);
    EXPECT_EQ(event.kind, Prompter::Event::Kind::Pick);
    EXPECT_EQ(event.place.y, 2);
    EXPECT_EQ(m_prompter.event(Prompter::Moves::Told, event), StatusNormal);
    EXPECT_EQ(event.kind, Prompter::Event::Kind::Move);
    EXPECT_EQ(event.place.x, 5);
    EXPECT_FALSE(m_person.requests[0].tellsMoves);
    EXPECT_TRUE(m_person.requests[2].tellsMoves);
    EXPECT_EQ(m_prompter.event(Prompter::Moves::Told, event), StatusCancelled);
}

TEST_F(PickedPlaces, ASnapThatIsTypedIsToldForThatPlaceAlone)
{
    m_prompter.snapper = [](const LispPoint &near, snap::Modes, const LispPoint &) { return near; };
    m_person.replies = {{InputReply::Kind::Text, u"end", {}}, picked(1, 2), picked(3, 4)};
    LispPoint point{};
    EXPECT_EQ(m_prompter.point(u"Point: ", nullptr, point), StatusNormal);
    EXPECT_EQ(m_person.requests[1].snap, snap::End);
    EXPECT_EQ(m_person.requests[1].prompt, u"of ");
    EXPECT_EQ(m_prompter.point(u"Point: ", nullptr, point), StatusNormal);
    EXPECT_FALSE(m_person.requests[2].snap);
}
