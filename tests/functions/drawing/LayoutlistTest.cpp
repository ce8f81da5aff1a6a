#include "functions/drawing.h"

#include "tests/support/HandlerTest.h"

namespace {

class Layoutlist : public HandlerTest
{
protected:
    Layoutlist() { host().replies.name = {{3, 4}}; }

    // The data of a dictionary: entry names under group code 3, and what stands between them.
    void setEntries(const std::vector<std::u16string> &names)
    {
        resbuf **link = &host().replies.list;
        *link = host().nodes().addText(u"DICTIONARY");
        for (const std::u16string &name : names) {
            (*link)->restype = link == &host().replies.list ? std::int16_t{0} : (*link)->restype;
            link = &(*link)->rbnext;
            *link = host().nodes().addText(name);
            (*link)->restype = 3;
            link = &(*link)->rbnext;
            *link = host().nodes().addText(u"1F");
            (*link)->restype = 350;
        }
    }
};

} // namespace

TEST_F(Layoutlist, OfADrawingWithOnlyTheModelLayoutHasOneElement)
{
    host().setArguments({});
    setEntries({u"Model"});
    EXPECT_EQ(layoutlist(), StatusNormal);
    EXPECT_EQ(host().operations(), (Operations{"namedObjDict", operation("dictSearch 3:4 1", "ACAD_LAYOUT"),
                                               "newRb 5016", operation("prependRb 5005", "Model"), "releaseRb null",
                                               "releaseRb list", "retVal 5016 5005 \"Model\"", "releaseRb list"}));
}

TEST_F(Layoutlist, NamesAreInDictionaryOrder)
{
    host().setArguments({});
    setEntries({u"Model", u"Übersicht", u"A1"});
    layoutlist();
    EXPECT_EQ(host().operations()[host().operations().size() - 2],
              "retVal 5016 5005 \"Model\" 5005 \"Übersicht\" 5005 \"A1\"");
}

TEST_F(Layoutlist, ADictionaryWithoutEntriesGivesAnOpenListAlone)
{
    host().setArguments({});
    setEntries({});
    host().replies.list->restype = 0;
    layoutlist();
    EXPECT_EQ(host().operations()[host().operations().size() - 2], "retVal 5016");
}

TEST_F(Layoutlist, WithoutADictionaryThereIsNoResult)
{
    EXPECT_EQ(call(layoutlist, {}), (Operations{"namedObjDict", operation("dictSearch 3:4 1", "ACAD_LAYOUT")}));
    host().setAnswer("namedObjDict", StatusError);
    EXPECT_EQ(call(layoutlist, {}), (Operations{"namedObjDict"}));
}
