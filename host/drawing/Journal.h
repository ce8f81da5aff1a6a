#pragma once

#include "host/drawing/Record.h"
#include "host/drawing/TextStore.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace drawing {

// The records, and the bytes of those that are not as in the file.
struct RecordStore
{
    std::vector<Record> records;
    TextStore texts;
};

// Undo, redo and transactions by before-images: who changes a record calls remember() first. Everything undone, the
// records are what they were.
//
// Steps: undo(1) takes one step back. Commands begin one each with nextStep(), which does nothing while a group or a
// block is open, so that each of them is one step; of those that overlap the whole is one. Groups are the UNDO
// command's, blocks are those of modules, and neither ends the other. Steps in which nothing changed do not count.
// Transactions nest and keep their changes; an undo never reaches behind the start of one that is open.
class Journal
{
public:
    enum class Recording { On, One, Off };               // one: nothing but the last step can be undone
    enum class UndoEnd { Mark, Beginning, Transaction }; // where an undo stopped

    explicit Journal(RecordStore &store) : m_store(store) {}

    void remember(RecordId id);

    void nextStep()
    {
        if (!m_groupIsOpen && !m_blockIsOpen)
            startStep();
    }
    void beginGroup(); // a group that is open ends before it
    void endGroup();   // nothing without a group
    bool isGroupOpen() const { return m_groupIsOpen; }

    void startRecord(); // of a module: begins a step also inside a block, not inside a group
    void beginBlock() { m_blockIsOpen = true; }
    void endBlock(); // nothing without a block
    bool isBlockOpen() const { return m_blockIsOpen; }

    void setMark(); // here: before the next step, which it begins also inside a group or block
    bool hasMark() const;
    std::size_t undo(std::size_t steps = 1); // gives how many were undone; ends an open group or block
    UndoEnd undoToMark();                    // also removes the mark; without a mark everything
    std::size_t redo(std::size_t steps = 1); // possible until the next change

    void startTransaction() { m_transactions.push_back(m_done); }
    void endTransaction(); // the innermost; nothing when none is open
    void endTransactions() { m_transactions.clear(); }
    bool isTransactionOpen() const { return !m_transactions.empty(); }

    // Off forgets what could be undone, one all but the last step.
    void setRecording(Recording recording);
    Recording recording() const { return m_recording; }
    void clear();

    // Grows with every change, also one that is undone or redone: who knows it knows whether anything happened since.
    std::uint64_t changeCount() const { return m_changeCount; }
    // The records that have changed since then, some more than once; none when it is too long ago to be known.
    std::optional<std::span<const RecordId>> changedSince(std::uint64_t changeCount) const;

    std::size_t undoableSteps() const;
    std::size_t redoableSteps() const;

private:
    struct Image
    {
        RecordId id;
        Record record;
    };
    struct Step
    {
        std::size_t begin; // of its images
        bool marked;
    };

    void startStep();
    void endAll(); // groups and blocks
    void noteChange(RecordId id);
    // Whether what is undone together has an image of it already: the first one is all that is needed.
    bool isRemembered(RecordId id) const;
    void exchange(Image &image);
    void takeBack(std::size_t begin); // the images from there on
    void dropFrom(std::size_t begin);
    void forgetBefore(std::size_t step);
    std::size_t stepEnd(std::size_t step) const;
    std::size_t floor() const { return m_transactions.empty() ? 0 : m_transactions.back(); }
    bool isStepEmpty() const { return m_steps[m_step].begin == m_done; }
    bool undoStep();

    RecordStore &m_store;
    std::vector<Image> m_images; // up to m_done to be undone, from there on to be redone
    std::size_t m_done = 0;
    std::vector<std::size_t> m_newest; // by RecordId: where its newest image was put; another may be there by now
    std::vector<Step> m_steps{{0, false}};
    std::size_t m_step = 0; // the one that changes go to
    std::vector<std::size_t> m_transactions;
    bool m_groupIsOpen = false, m_blockIsOpen = false;
    Recording m_recording = Recording::On;
    std::uint64_t m_changeCount = 0;
    std::vector<RecordId> m_changed; // by the latest changes
};

} // namespace drawing
