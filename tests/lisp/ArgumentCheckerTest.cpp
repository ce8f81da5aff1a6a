#include "lisp/ArgumentChecker.h"

#include "lisp/ActiveLispHost.h"
#include "tests/support/HandlerTest.h"

namespace {

class ArgumentChecker : public HandlerTest
{
protected:
    // The first node of an argument list. What fetching it records is forgotten again.
    resbuf *list(const Arguments &arguments)
    {
        host().setArguments(arguments);
        resbuf *head = activeLispHost()->getArgs();
        m_fetched = host().operations().size();
        return head;
    }

    Operations operations() const
    {
        return {m_host->operations().begin() + long(m_fetched), m_host->operations().end()};
    }

private:
    RecordingHost *m_host = &host();
    std::size_t m_fetched = 0;
};

} // namespace

TEST_F(ArgumentChecker, GivesTheNodeBackUnchangedWhenTheTypeIsRight)
{
    resbuf *node = list({text(u"a")});
    EXPECT_EQ(checkArgument(TypeString, node), node);
    EXPECT_EQ(operations(), Operations{});
}

TEST_F(ArgumentChecker, ARequiredArgumentMissingGivesExactlyOneMessageAndNil)
{
    EXPECT_EQ(checkArgument(TypeString, list({})), nullptr);
    EXPECT_EQ(operations(), (Operations{tooFewArguments, "retNil"}));
}

TEST_F(ArgumentChecker, AnOptionalArgumentMissingGivesNoMessage)
{
    EXPECT_EQ(checkArgument(TypeString, list({}), Presence::Optional), nullptr);
    EXPECT_EQ(operations(), Operations{});
}

TEST_F(ArgumentChecker, AnOptionalArgumentOfTheWrongTypeIsRefusedAllTheSame)
{
    EXPECT_EQ(checkArgument(TypeString, list({nil()}), Presence::Optional), nullptr);
    EXPECT_EQ(operations(), (Operations{wrongType, "retNil", "releaseRb 1"}));
}

TEST_F(ArgumentChecker, AWrongTypedSecondArgumentReleasesFromTheSecondNodeOnAndLeavesTheHeadAlone)
{
    resbuf *head = list({text(u"a"), real(1.5), text(u"b")});
    EXPECT_EQ(checkArgument(TypeString, head->rbnext), nullptr);
    EXPECT_EQ(operations(), (Operations{wrongType, "retNil", "releaseRb 2"}));
    EXPECT_EQ(host().nodes().describe(head), "1");
}

TEST_F(ArgumentChecker, A2dPointWhereA3dPointIsExpectedIsRejectedAsTheWrongType)
{
    EXPECT_EQ(checkArgument(TypePoint3d, list({point2d(1, 2)})), nullptr);
    EXPECT_EQ(operations(), (Operations{wrongType, "retNil", "releaseRb 1"}));
}

TEST_F(ArgumentChecker, AShortIntegerIsNoLongOne)
{
    EXPECT_EQ(checkArgument(TypeLong, list({shortInteger(1)})), nullptr);
    EXPECT_EQ(operations(), (Operations{wrongType, "retNil", "releaseRb 1"}));
}
