#include "gui/forms/Selection.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Gui::Forms
{
namespace
{
std::ptrdiff_t indexOf(const std::vector<Selection::Id>& records, Selection::Id id)
{
    return std::ranges::find(records, id) - records.begin();
}
}  // namespace

// --- the records of the section

void Selection::setRecords(std::vector<Id> inOrder)
{
    const std::vector<Id> before = std::exchange(records, std::move(inOrder));
    State next = state;
    std::erase_if(next.selected, [this](Id id) { return !hasRecord(id); });
    keepCurrent(next, before);
    set(std::move(next));
}

/// Makes the record current that stands where the current one was.
void Selection::keepCurrent(State& next, const std::vector<Id>& before) const
{
    if (next.anchor && !hasRecord(*next.anchor)) next.anchor.reset();
    if (!next.current || hasRecord(*next.current)) return;
    if (records.empty()) return next.current.reset();
    const auto place = std::min(indexOf(before, *next.current), std::ssize(records) - 1);
    next.current = records[static_cast<std::size_t>(place)];
}

void Selection::added(Id id)
{
    if (ids == Ids::fixed) {
        if (!hasRecord(id)) records.push_back(id);
        return;
    }
    if (id < 0 || id > std::ssize(records)) return;
    records.push_back(static_cast<Id>(records.size()));
    set(shifted(state, id, 1));
}

void Selection::removed(Id id)
{
    if (!hasRecord(id)) return;
    const std::vector<Id> before = records;
    std::erase(records, id);
    State next = state;
    next.selected.erase(id);
    keepCurrent(next, before);
    if (ids == Ids::indices) {
        records = before;
        records.pop_back();
        next = shifted(next, id, -1);
    }
    set(std::move(next));
}

/// The same records, when `by` is added to the ids from `from` on.
Selection::State Selection::shifted(const State& state, Id from, int by)
{
    const auto shift = [&](Id id) { return id < from ? id : id + by; };
    State next = state;
    next.selected.clear();
    for (const Id id : state.selected) next.selected.insert(shift(id));
    if (next.current) next.current = shift(*next.current);
    if (next.anchor) next.anchor = shift(*next.anchor);
    return next;
}

// --- what is selected

std::vector<Selection::Id> Selection::getSelected() const
{
    std::vector<Id> inOrder;
    std::ranges::copy_if(records, std::back_inserter(inOrder), [this](Id id) { return isSelected(id); });
    return inOrder;
}

std::vector<Selection::Id> Selection::getTargets(std::size_t count) const
{
    std::vector<Id> targets = getSelected();
    if (targets.empty() || targets.size() >= count) return targets;
    const auto first = std::ranges::find(records, targets.front());
    targets.assign(first, first + std::min(records.end() - first, static_cast<std::ptrdiff_t>(count)));
    return targets;
}

void Selection::select(const std::vector<Id>& chosen)
{
    State next{{}, state.current, {}};
    for (const Id id : chosen)
        if (hasRecord(id)) {
            next.selected.insert(id);
            next.current = next.anchor = id;
        }
    set(std::move(next));
}

void Selection::selectAll()
{
    State next = state;
    next.selected = {records.begin(), records.end()};
    if (!next.current && !records.empty()) next.current = next.anchor = records.front();
    set(std::move(next));
}

// --- what the user does

void Selection::click(Id id, Qt::KeyboardModifiers held)
{
    if (!hasRecord(id)) return;
    const bool adds = held.testFlag(Qt::ControlModifier);
    if (held.testFlag(Qt::ShiftModifier)) {
        State next = state;
        if (!adds) next.selected.clear();
        selectRange(next, id);
        return set(std::move(next));
    }
    if (!adds) return select({id});
    State next{state.selected, id, id};
    if (!next.selected.erase(id)) next.selected.insert(id);
    set(std::move(next));
}

void Selection::clickForMenu(Id id)
{
    if (!isSelected(id)) return select({id});
    State next = state;
    next.current = id;
    set(std::move(next));
}

void Selection::moveTo(Id id, Qt::KeyboardModifiers held)
{
    if (!held.testFlag(Qt::ControlModifier) || held.testFlag(Qt::ShiftModifier)) return click(id, held);
    if (!hasRecord(id)) return;
    State next = state;
    next.current = id;
    set(std::move(next));
}

void Selection::move(Step step, Qt::KeyboardModifiers held)
{
    if (records.empty()) return;
    const auto last = std::ssize(records) - 1;
    const auto now = state.current ? indexOf(records, *state.current) : -1;
    const auto target = [&]() -> std::ptrdiff_t {
        switch (step) {
            case Step::previous:
                return now < 0 ? last : now - 1;
            case Step::next:
                return now + 1;
            case Step::first:
                return 0;
            case Step::last:
                return last;
        }
        return now;
    }();
    moveTo(records[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(target, 0, last))], held);
}

bool Selection::useKey(int key, Qt::KeyboardModifiers held)
{
    switch (key) {
        case Qt::Key_Up:
        case Qt::Key_Left:
            move(Step::previous, held);
            return true;
        case Qt::Key_Down:
        case Qt::Key_Right:
            move(Step::next, held);
            return true;
        case Qt::Key_Home:
            move(Step::first, held);
            return true;
        case Qt::Key_End:
            move(Step::last, held);
            return true;
        case Qt::Key_Space:
            if (state.current) click(*state.current, held);
            return true;
        case Qt::Key_A:
            if (held != Qt::ControlModifier) return false;
            selectAll();
            return true;
        default:
            return false;
    }
}

// --- the state

bool Selection::hasRecord(Id id) const { return std::ranges::find(records, id) != records.end(); }

/// From the anchor, or else from the current record, which becomes it.
void Selection::selectRange(State& next, Id to) const
{
    if (!next.anchor) next.anchor = next.current.value_or(to);
    const auto [from, until] = std::minmax({indexOf(records, *next.anchor), indexOf(records, to)});
    next.selected.insert(records.begin() + from, records.begin() + until + 1);
    next.current = to;
}

void Selection::set(State next)
{
    const bool isChanged = next.selected != state.selected || next.current != state.current;
    state = std::move(next);
    if (isChanged && onChange) onChange();
}
}  // namespace Gui::Forms
