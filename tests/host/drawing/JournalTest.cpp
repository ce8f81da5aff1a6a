#include "tests/host/drawing/SampleDrawing.h"

#include <gtest/gtest.h>

#include <random>

namespace drawing {
namespace {

class JournalTest : public testing::Test
{
protected:
    void setColour(int colour)
    {
        GroupList groups = m_database->groups(m_layer);
        m_database->replace(m_layer, withValue(std::move(groups), 62, std::int64_t{colour}));
    }
    int colour() const { return static_cast<int>(*findValue<std::int64_t>(m_database->groups(m_layer), 62)); }
    void change(int colour)
    {
        m_journal.nextStep();
        setColour(colour);
    }

    const std::unique_ptr<Database> m_database = databaseOf(SampleText);
    const RecordId m_layer = m_database->find({0x10});
    Journal &m_journal = m_database->journal();
};

TEST_F(JournalTest, UndoesAndRedoesStepByStep)
{
    change(1);
    change(2);
    EXPECT_EQ(m_journal.undo(), 1);
    EXPECT_EQ(colour(), 1);
    EXPECT_EQ(m_journal.undo(5), 1);
    EXPECT_EQ(writtenDrawing(*m_database), SampleText);
    EXPECT_EQ(m_journal.undo(), 0);
    EXPECT_EQ(m_journal.redoableSteps(), 2);
    EXPECT_EQ(m_journal.redo(), 1);
    EXPECT_EQ(colour(), 1);
    EXPECT_EQ(m_journal.redo(5), 1);
    EXPECT_EQ(colour(), 2);
    EXPECT_EQ(m_journal.redo(), 0);
}

TEST_F(JournalTest, AChangeEndsWhatCouldBeRedone)
{
    change(1);
    change(2);
    m_journal.undo(2);
    change(3);
    EXPECT_EQ(m_journal.redo(), 0);
    EXPECT_EQ(colour(), 3);
    EXPECT_EQ(m_journal.undo(), 1);
    EXPECT_EQ(colour(), 7);
}

TEST_F(JournalTest, StepsInWhichNothingChangedDoNotCount)
{
    change(1);
    m_journal.nextStep();
    m_journal.nextStep();
    EXPECT_EQ(m_journal.undoableSteps(), 1);
    EXPECT_EQ(m_journal.undo(), 1);
    EXPECT_EQ(colour(), 7);
}

TEST_F(JournalTest, AGroupIsOneStep)
{
    change(1);
    m_journal.beginGroup();
    EXPECT_TRUE(m_journal.isGroupOpen());
    change(2);
    change(3);
    m_journal.endGroup();
    m_journal.endGroup();
    change(4);
    EXPECT_EQ(m_journal.undo(2), 2);
    EXPECT_EQ(colour(), 1);
}

TEST_F(JournalTest, ARecordBeginsAStepInsideABlock)
{
    m_journal.startRecord();
    m_journal.beginBlock();
    change(1);
    m_journal.nextStep();
    change(2);
    m_journal.startRecord();
    change(3);
    EXPECT_TRUE(m_journal.isBlockOpen());
    m_journal.endBlock();
    m_journal.undo();
    EXPECT_EQ(colour(), 2);
    m_journal.undo();
    EXPECT_EQ(colour(), 7);
}

TEST_F(JournalTest, AGroupInsideABlockIsAPartOfItsStep)
{
    change(1);
    m_journal.startRecord();
    m_journal.beginBlock();
    change(2);
    m_journal.beginGroup();
    change(3);
    m_journal.endGroup();
    m_journal.nextStep();
    change(4);
    EXPECT_TRUE(m_journal.isBlockOpen());
    m_journal.endBlock();
    m_journal.undo();
    EXPECT_EQ(colour(), 1);
}

TEST_F(JournalTest, ABlockInsideAGroupIsAPartOfItsStep)
{
    change(1);
    m_journal.beginGroup();
    change(2);
    m_journal.startRecord();
    m_journal.beginBlock();
    change(3);
    m_journal.endBlock();
    m_journal.nextStep();
    change(4);
    EXPECT_TRUE(m_journal.isGroupOpen());
    m_journal.endGroup();
    m_journal.undo();
    EXPECT_EQ(colour(), 1);
}

TEST_F(JournalTest, AGroupAndABlockThatOverlapAreOneStep)
{
    change(1);
    m_journal.beginGroup();
    change(2);
    m_journal.startRecord();
    m_journal.beginBlock();
    change(3);
    m_journal.endGroup();
    m_journal.nextStep();
    change(4);
    m_journal.endBlock();
    change(5);
    m_journal.undo();
    EXPECT_EQ(colour(), 4);
    m_journal.undo();
    EXPECT_EQ(colour(), 1);
}

TEST_F(JournalTest, UndoEndsABlock)
{
    m_journal.beginBlock();
    change(1);
    m_journal.undo();
    EXPECT_FALSE(m_journal.isBlockOpen());
    EXPECT_EQ(colour(), 7);
}

TEST_F(JournalTest, UndoesBackToTheLatestMark)
{
    change(1);
    m_journal.setMark();
    change(2);
    m_journal.setMark();
    change(3);
    change(4);
    EXPECT_TRUE(m_journal.hasMark());
    EXPECT_EQ(m_journal.undoToMark(), Journal::UndoEnd::Mark);
    EXPECT_EQ(colour(), 2);
    EXPECT_EQ(m_journal.undoToMark(), Journal::UndoEnd::Mark);
    EXPECT_EQ(colour(), 1);
    EXPECT_FALSE(m_journal.hasMark());
    EXPECT_EQ(m_journal.undoToMark(), Journal::UndoEnd::Beginning);
    EXPECT_EQ(colour(), 7);
}

TEST_F(JournalTest, TransactionsNest)
{
    change(1);
    m_journal.startTransaction();
    change(2);
    m_journal.startTransaction();
    change(3);
    m_journal.endTransaction();
    EXPECT_TRUE(m_journal.isTransactionOpen());
    m_journal.endTransaction();
    EXPECT_FALSE(m_journal.isTransactionOpen());
    m_journal.endTransaction();
    EXPECT_EQ(colour(), 3);
    EXPECT_EQ(m_journal.undo(9), 3);
    EXPECT_EQ(colour(), 7);
}

TEST_F(JournalTest, EndingAllTransactionsKeepsTheirChangesAndLetsThemBeUndone)
{
    m_journal.startTransaction();
    m_journal.startTransaction();
    change(1);
    m_journal.endTransactions();
    EXPECT_EQ(colour(), 1);
    EXPECT_EQ(m_journal.undo(), 1);
    EXPECT_EQ(colour(), 7);
}

TEST_F(JournalTest, UndoStopsAtTheStartOfAnOpenTransaction)
{
    change(1);
    m_journal.nextStep();
    m_journal.startTransaction();
    change(2);
    EXPECT_EQ(m_journal.undo(9), 1);
    EXPECT_EQ(colour(), 1);
    EXPECT_EQ(m_journal.undoToMark(), Journal::UndoEnd::Transaction);
}

TEST_F(JournalTest, WithoutRecordingNothingIsUndone)
{
    change(1);
    m_journal.setRecording(Journal::Recording::Off);
    change(2);
    EXPECT_EQ(m_journal.undo(), 0);
    EXPECT_EQ(colour(), 2);
}

TEST_F(JournalTest, AnAddedEntityThatIsUndoneIsNotFoundUntilItIsRedone)
{
    m_journal.nextStep();
    const RecordId end = m_database->endOf(m_database->section(known::Entities));
    const RecordId added = m_database->add(RecordKind::Entity, {{0, u"POINT"}, {8, u"0"}}, end);
    const Handle handle{m_database->record(added).handle};
    m_journal.undo();
    EXPECT_EQ(m_database->find(handle), NoRecord);
    EXPECT_EQ(writtenDrawing(*m_database), SampleText);
    m_journal.redo();
    EXPECT_EQ(m_database->find(handle), added);
}

// A random change of a random record.
void changeSomething(Database &database, std::mt19937 &random)
{
    const auto id = static_cast<RecordId>(1 + random() % (database.recordCount() - 1));
    const Record &record = database.record(id);
    if (record.isGone())
        return record.has(Record::Absent) ? void() : database.restore(id);
    switch (random() % 4) {
    case 0:
        return database.replace(id, withValue(database.groups(id), 8, u"L" + std::u16string(random() % 9, u'x'))),
               void();
    case 1:
        return record.kind == RecordKind::Entity ? database.erase(id) : void();
    case 2:
        return database.ensureSection(random() % 2 ? known::Objects : known::Classes), void();
    default: {
        const RecordId section = database.section(known::Entities);
        database.add(RecordKind::Entity, {{0, u"POINT"}, {8, u"0"}}, database.endOf(section));
    }
    }
}

// Nested, each with changes before and behind the next.
void changeInTransactions(Database &database, std::mt19937 &random, int depth)
{
    database.journal().startTransaction();
    changeSomething(database, random);
    if (depth > 1) {
        changeInTransactions(database, random, depth - 1);
        changeSomething(database, random);
    }
    database.journal().endTransaction();
}

TEST(JournalOfRandomChanges, UndoneToTheStartIsTheOriginalAndRedoneToTheEndTheChanged)
{
    std::mt19937 random(20);
    for (int run = 0; run < 300; ++run) {
        const auto database = databaseOf(SampleText);
        std::vector<std::string> states{writtenDrawing(*database)};
        for (int i = 0; i < 25; ++i) {
            database->journal().nextStep();
            const std::size_t before = database->journal().undoableSteps();
            for (auto changes = random() % 4; changes > 0; --changes)
                changeSomething(*database, random);
            if (random() % 4 == 0)
                changeInTransactions(*database, random, 3);
            if (database->journal().undoableSteps() > before)
                states.push_back(writtenDrawing(*database));
            if (random() % 5 == 0)
                for (std::size_t undone = database->journal().undo(random() % 4); undone > 0; --undone)
                    states.pop_back();
            ASSERT_EQ(writtenDrawing(*database), states.back());
        }
        for (std::size_t i = states.size(); i-- > 1;) {
            ASSERT_EQ(writtenDrawing(*database), states[i]);
            ASSERT_EQ(database->journal().undo(), 1);
        }
        ASSERT_EQ(writtenDrawing(*database), SampleText);
        ASSERT_EQ(database->journal().redo(states.size() - 1), states.size() - 1);
        ASSERT_EQ(writtenDrawing(*database), states.back());
    }
}

TEST_F(JournalTest, OfOneStepThereIsNoOther)
{
    change(1);
    change(2);
    m_journal.setRecording(Journal::Recording::One);
    EXPECT_EQ(m_journal.undo(5), 1);
    EXPECT_EQ(colour(), 1);
    EXPECT_EQ(m_journal.redo(), 1);
    change(3);
    setColour(4);
    change(5);
    m_journal.nextStep();
    EXPECT_EQ(m_journal.undo(5), 1);
    EXPECT_EQ(colour(), 4);
    EXPECT_EQ(m_journal.undo(), 0);
    EXPECT_EQ(m_journal.redo(), 1);
    EXPECT_EQ(colour(), 5);
}

TEST_F(JournalTest, OfOneStepATransactionKeepsItsBeginning)
{
    change(1);
    m_journal.startTransaction();
    m_journal.setRecording(Journal::Recording::One);
    EXPECT_EQ(m_journal.undo(), 0);
    change(2);
    EXPECT_EQ(m_journal.undo(), 1);
    EXPECT_EQ(colour(), 1);
    EXPECT_EQ(m_journal.undo(), 0);
}

} // namespace
} // namespace drawing
