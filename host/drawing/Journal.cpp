#include "host/drawing/Journal.h"

#include <algorithm>
#include <utility>

namespace drawing {

namespace {

constexpr std::size_t MostKnownChanges = 1 << 18; // who wants to know of more looks at everything

} // namespace

void Journal::noteChange(RecordId id)
{
    ++m_changeCount;
    if (m_changed.size() == MostKnownChanges)
        m_changed.clear();
    m_changed.push_back(id);
}

std::optional<std::span<const RecordId>> Journal::changedSince(std::uint64_t changeCount) const
{
    const std::uint64_t count = m_changeCount - changeCount;
    if (count > m_changed.size())
        return std::nullopt;
    return std::span(m_changed).last(static_cast<std::size_t>(count));
}

void Journal::remember(RecordId id)
{
    noteChange(id);
    if (m_done < m_images.size()) {
        dropFrom(m_done);
        m_steps.resize(m_step + 1);
    }
    if (m_recording == Recording::Off || isRemembered(id))
        return;
    if (m_recording == Recording::One && isStepEmpty())
        forgetBefore(m_step);
    if (m_newest.size() <= id)
        m_newest.resize(m_store.records.size());
    m_newest[id] = m_images.size();
    m_images.push_back({id, m_store.records[id]});
    m_store.texts.hold(m_store.records[id].text);
    m_done = m_images.size();
}

bool Journal::isRemembered(RecordId id) const
{
    const std::size_t place = id < m_newest.size() ? m_newest[id] : m_images.size();
    return place >= m_steps[m_step].begin && place < m_images.size() && m_images[place].id == id;
}

void Journal::startStep()
{
    if (isStepEmpty())
        return; // nothing has changed since the step began, or it was undone and a change cuts what follows
    m_steps.push_back({m_done, false});
    m_step = m_steps.size() - 1;
}

void Journal::beginGroup()
{
    if (!m_blockIsOpen)
        startStep();
    m_groupIsOpen = true;
}

void Journal::endGroup()
{
    if (std::exchange(m_groupIsOpen, false) && !m_blockIsOpen)
        startStep();
}

void Journal::startRecord()
{
    if (!m_groupIsOpen)
        startStep();
}

void Journal::endBlock()
{
    if (std::exchange(m_blockIsOpen, false) && !m_groupIsOpen)
        startStep();
}

void Journal::endAll()
{
    endGroup();
    endBlock();
}

void Journal::setMark()
{
    startStep();
    m_steps[m_step].marked = true;
}

bool Journal::hasMark() const
{
    return std::any_of(m_steps.begin(), m_steps.begin() + static_cast<std::ptrdiff_t>(m_step) + 1,
                       [](const Step &step) { return step.marked; });
}

std::size_t Journal::stepEnd(std::size_t step) const
{
    return step + 1 < m_steps.size() ? m_steps[step + 1].begin : m_images.size();
}

void Journal::exchange(Image &image)
{
    noteChange(image.id);
    std::swap(image.record, m_store.records[image.id]);
}

void Journal::takeBack(std::size_t begin)
{
    while (m_done > begin)
        exchange(m_images[--m_done]);
}

bool Journal::undoStep()
{
    if (isStepEmpty() && m_step > 0)
        --m_step;
    if (m_done <= floor() || m_steps[m_step].begin < floor())
        return false;
    takeBack(m_steps[m_step].begin);
    return true;
}

std::size_t Journal::undo(std::size_t steps)
{
    endAll();
    std::size_t count = 0;
    while (count < steps && undoStep())
        ++count;
    return count;
}

Journal::UndoEnd Journal::undoToMark()
{
    endAll();
    do {
        Step &step = m_steps[m_step];
        if (step.begin == m_done && std::exchange(step.marked, false))
            return UndoEnd::Mark;
    } while (undoStep());
    return isTransactionOpen() ? UndoEnd::Transaction : UndoEnd::Beginning;
}

std::size_t Journal::redo(std::size_t steps)
{
    endAll();
    std::size_t count = 0;
    for (; count < steps && m_done < m_images.size(); ++count) {
        for (const std::size_t end = stepEnd(m_step); m_done < end; ++m_done)
            exchange(m_images[m_done]);
        if (m_step + 1 < m_steps.size())
            ++m_step;
    }
    return count;
}

void Journal::endTransaction()
{
    if (isTransactionOpen())
        m_transactions.pop_back();
}

void Journal::dropFrom(std::size_t begin)
{
    for (std::size_t i = begin; i < m_images.size(); ++i)
        m_store.texts.release(m_images[i].record.text);
    m_images.resize(begin);
}

void Journal::forgetBefore(std::size_t step)
{
    const std::size_t count = m_steps[step].begin;
    for (std::size_t i = 0; i < count; ++i)
        m_store.texts.release(m_images[i].record.text);
    m_images.erase(m_images.begin(), m_images.begin() + static_cast<std::ptrdiff_t>(count));
    m_done -= count;
    m_steps.erase(m_steps.begin(), m_steps.begin() + static_cast<std::ptrdiff_t>(step));
    m_step -= step;
    for (Step &left : m_steps)
        left.begin -= count;
    for (std::size_t &start : m_transactions)
        start -= std::min(start, count);
}

void Journal::setRecording(Recording recording)
{
    if (recording == Recording::Off)
        clear();
    else if (recording == Recording::One)
        forgetBefore(isStepEmpty() && m_step > 0 ? m_step - 1 : m_step);
    m_recording = recording;
}

void Journal::clear()
{
    dropFrom(0);
    m_done = 0;
    m_steps.assign(1, {0, false});
    m_step = 0;
    m_groupIsOpen = m_blockIsOpen = false;
    std::fill(m_transactions.begin(), m_transactions.end(), 0);
}

std::size_t Journal::undoableSteps() const
{
    return m_step + (m_steps[m_step].begin < m_done ? 1 : 0);
}

std::size_t Journal::redoableSteps() const
{
    std::size_t count = 0;
    for (std::size_t step = m_step; m_done < m_images.size() && step < m_steps.size(); ++step)
        count += m_steps[step].begin < stepEnd(step) ? 1 : 0;
    return count;
}

} // namespace drawing
