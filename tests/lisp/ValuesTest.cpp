#include "lisp/Values.h"

#include "lisp/ActiveLispHost.h"
#include "tests/support/HandlerTest.h"

namespace {

class Values : public HandlerTest
{
};

} // namespace

TEST_F(Values, NamesAreListedInTheirOrderBehindAnOpenListAndTheListIsReleased)
{
    returnNames({u"a"_qs, u"ß €"_qs});
    EXPECT_EQ(host().operations(),
              (Operations{"newRb 5016", operation("prependRb 5005", "ß €"), operation("prependRb 5005", "a"),
                          "retList 5016 5005 \"a\" 5005 \"ß €\"", "releaseRb list"}));
}

TEST_F(Values, NoNamesAreALoneListBegin)
{
    returnNames({});
    EXPECT_EQ(host().operations(), (Operations{"newRb 5016", "retList 5016", "releaseRb list"}));
}

TEST_F(Values, TruthIsTOrNil)
{
    returnTruth(true);
    returnTruth(false);
    EXPECT_EQ(host().operations(), (Operations{"retT", "retNil"}));
}

TEST_F(Values, ATextThatBeginsWithAByteOrderMarkStaysWhole)
{
    host().setArguments({text(u"\ufeffa"), text(u"\ufffea")});
    const resbuf *node = activeLispHost()->getArgs();
    EXPECT_EQ(textOf(node), u"\ufeffa"_qs);
    EXPECT_EQ(textOf(node->rbnext), u"\ufffea"_qs);
}

TEST_F(Values, AViewIsTheNodesTextItself)
{
    host().setArguments({text(u"\ufeffa")});
    const resbuf *node = activeLispHost()->getArgs();
    const QString view = viewOf(node);
    EXPECT_EQ(view, u"\ufeffa"_qs);
    EXPECT_EQ(static_cast<const void *>(view.constData()), node->resval.string);
}
