#include "functions/undo.h"

#include "sdk/oda/OdDbDatabase.h"
#include "tests/support/HandlerTest.h"

namespace {

class RecordingDatabase final : public OdDbDatabase
{
public:
    void startUndoRecord() override { calls.push_back("startUndoRecord"); }
    void blockUndoRecording(bool block) override
    {
        calls.push_back(block ? "blockUndoRecording true" : "blockUndoRecording false");
        isBlocked = block;
    }
    bool isUndoBlockStarted() const override { return isBlocked; }
    void startTransaction() override { calls.push_back("startTransaction"); }
    void endTransaction() override { calls.push_back("endTransaction"); }

    std::vector<std::string> calls;
    bool isBlocked = false;
};

using Calls = std::vector<std::string>;

class Undogroup : public HandlerTest
{
protected:
    Undogroup() { host().replies.database = &m_database; }

    // What the handler did to the drawing. It asks nothing of the interpreter: no arguments, no result.
    Calls callsOf(LispHandler handler, const Arguments &arguments = {})
    {
        m_database.calls.clear();
        EXPECT_EQ(call(handler, arguments), Operations{});
        return m_database.calls;
    }

    RecordingDatabase m_database;
};

} // namespace

TEST_F(Undogroup, BeginStartsARecordAndBlocksRecording)
{
    EXPECT_EQ(callsOf(acetBeginUndogroup), (Calls{"startUndoRecord", "blockUndoRecording true"}));
}

TEST_F(Undogroup, ASecondBeginStartsAnotherRecordWhileRecordingStaysBlocked)
{
    callsOf(acetBeginUndogroup);
    EXPECT_EQ(callsOf(acetBeginUndogroup), (Calls{"startUndoRecord", "blockUndoRecording true"}));
}

TEST_F(Undogroup, EndTwiceInARowTheSecondCallChangesNothing)
{
    callsOf(acetBeginUndogroup);
    EXPECT_EQ(callsOf(acetEndUndogroup), Calls{"blockUndoRecording false"});
    EXPECT_EQ(callsOf(acetEndUndogroup), Calls{});
}

TEST_F(Undogroup, TransactionsStartAndEnd)
{
    EXPECT_EQ(callsOf(startAddTableTransaction), Calls{"startTransaction"});
    EXPECT_EQ(callsOf(endAddTableTransaction), Calls{"endTransaction"});
}

TEST_F(Undogroup, ArgumentsPassedToAnyOfTheseFunctionsAreIgnored)
{
    const Arguments arguments = {text(u"a"), nil(), shortInteger(1)};
    EXPECT_EQ(callsOf(acetBeginUndogroup, arguments).size(), 2U);
    EXPECT_EQ(callsOf(acetEndUndogroup, arguments).size(), 1U);
    EXPECT_EQ(callsOf(startAddTableTransaction, arguments).size(), 1U);
    EXPECT_EQ(callsOf(endAddTableTransaction, arguments).size(), 1U);
}

TEST(UndogroupWithoutADocument, TheCallFails)
{
    for (const LispHandler handler :
         {acetBeginUndogroup, acetEndUndogroup, startAddTableTransaction, endAddTableTransaction})
        EXPECT_EQ(handler(), StatusError);
}
