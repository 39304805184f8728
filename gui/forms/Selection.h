#pragma once

#include <QtCore/qnamespace.h>

#include <functional>
#include <optional>
#include <set>
#include <vector>

#include "backend/model/Edit.h"

namespace Gui::Forms
{
/// Which records of a section are selected in the window, and which one is current: the one that the keys start from.
/// It draws nothing: a list or a picture of a section shows it and passes on what the user does. The GUI thread.
class Selection
{
public:
    using Id = Backend::RecordId;
    enum class Ids {
        fixed,   ///< a record keeps its id
        indices  ///< of layers and oscillators: those after a record that is added or removed are counted anew
    };
    enum class Step { previous, next, first, last };

    explicit Selection(Ids kind) : ids(kind) {}

    /// Called when other records are selected or current, for whatever reason.
    std::function<void()> onChange;

    // The records of the section

    /// All of them, in the order in which the user sees them. Those that are gone are no longer selected; if the
    /// current one is gone, the record in its place is current.
    void setRecords(std::vector<Id> inOrder);
    const std::vector<Id>& getRecords() const { return records; }

    /// A record is added, at its index or at the end, or removed. To be called before `setRecords` reports the result,
    /// so that selected records stay selected under the numbers that they have then.
    void added(Id id);
    void removed(Id id);

    // What is selected

    bool isSelected(Id id) const { return state.selected.contains(id); }
    bool isCurrent(Id id) const { return state.current == id; }
    std::optional<Id> getCurrent() const { return state.current; }
    /// In the order of the records.
    std::vector<Id> getSelected() const;
    /// Those that so many pasted records replace: the selected ones if these are at least as many, else so many from
    /// the first selected one on; fewer at the end, none without a selection.
    std::vector<Id> getTargets(std::size_t count) const;

    /// Selects these, and nothing else; the last one is current. Unknown ones are ignored.
    void select(const std::vector<Id>& chosen);
    void selectAll();

    // What the user does. Unknown ids are ignored.

    /// A click: selects a record alone; with Shift all from the anchor, the record that was last clicked without Shift;
    /// with Control it adds or removes it, with both it adds all from the anchor.
    void click(Id id, Qt::KeyboardModifiers held);
    /// A click of the right button: what is selected stays if the record belongs to it.
    void clickForMenu(Id id);
    /// A key that moves from the current record to this one: with Shift it selects all from the anchor, with Control it
    /// selects nothing.
    void moveTo(Id id, Qt::KeyboardModifiers held);
    /// The same along the order of the records; nothing at the ends.
    void move(Step step, Qt::KeyboardModifiers held);
    /// Arrows, Home, End, Space and Control+A, as a list has them. Returns whether it was one of these keys.
    bool useKey(int key, Qt::KeyboardModifiers held);

private:
    struct State {
        std::set<Id> selected{};
        std::optional<Id> current{};
        std::optional<Id> anchor{};
    };

    bool hasRecord(Id id) const;
    void selectRange(State& next, Id to) const;
    static State shifted(const State& state, Id from, int by);
    void keepCurrent(State& next, const std::vector<Id>& before) const;
    void set(State next);

    const Ids ids;
    std::vector<Id> records;
    State state;
};
}  // namespace Gui::Forms
