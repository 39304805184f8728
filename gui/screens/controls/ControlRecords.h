#pragma once

#include <QSize>
#include <optional>
#include <vector>

#include "backend/model/ControlMap.h"
#include "gui/forms/BindingFields.h"
#include "gui/forms/SectionRecords.h"

namespace Gui::Controls
{
/// The controls of the program as the window knows them, in reading order. While controls are arranged, one empty cell
/// may be among the records: the first value that it gets makes a control there. The GUI thread.
class ControlRecords final : public Forms::SectionRecords
{
public:
    using Id = Backend::RecordId;
    using Control = Backend::Controls::Control;
    using ControlMap = Backend::Controls::ControlMap;

    /// The lists must outlive it.
    explicit ControlRecords(const Forms::FieldLists& names) : lists(names) {}

    static Cell cellOf(Id id) { return Cell::fromPacked(static_cast<std::uint32_t>(id)); }
    static Id idOf(const Cell& cell) { return static_cast<Id>(cell.getPacked()); }
    static bool isInGrid(const Cell& cell);
    /// Columns and rows that a control covers, at least one of each.
    static QSize spanOf(const Control& control);

    // The copies
    void take(const ControlMap& reported) { controls = reported; }
    const ControlMap& getControls() const { return controls; }
    Control* find(Id id) { return controls.findElement(cellOf(id)); }
    const Control* find(Id id) const { return controls.findElement(cellOf(id)); }
    /// The control that covers the cell; null if it is empty.
    const Control* findAt(const Cell& cell) const;
    /// Columns and rows that are used.
    QSize getUsed() const;

    /// The empty cell that is a record.
    void setEmptyCell(std::optional<Cell> cell) { emptyCell = cell; }
    std::optional<Cell> getEmptyCell() const { return emptyCell; }

    // Places

    /// Why a control cannot be there, for the user; empty if it can. Those of `except` leave their cells.
    QString findObstacle(const Control& control, const std::vector<Id>& except) const;
    /// The largest size that the fader can have.
    int getLargestSize(const Control& control) const;
    /// All have room there.
    void move(const std::vector<Id>& from, const Cell& by);
    /// A knob that sends nothing.
    void add(const Cell& cell);

    // Events

    /// Sets its first event; a range of all values of the old event becomes that of the new one.
    void setEvent(Id id, const Backend::MidiEngine::MidiMessage& event);
    /// The most events that a control has, at least 1; `fieldsOf` has fields for so many.
    int countEvents() const;

    const Kind& getKind() const override;
    std::vector<Id> getIds() const override;
    std::string write(Id id) const override;
    /// "MW, vertical fader, row 1, column 2, Control Change 1: Modulation Wheel, channel 3, 0 to 127".
    QString describe(Id id) const override;
    /// "control MW".
    QString nameOf(Id id) const override;
    std::vector<Forms::FormField> fieldsOf(Id id) override;
    /// In the place where all of them fit, as they lie to each other, from the first selected cell on.
    std::vector<Backend::RecordEdit> makeAdditions(std::vector<Backend::Fields> added,
                                                   const Forms::Selection& selection) const override;
    std::vector<Backend::RecordEdit> makeRemovals(const std::vector<Id>& removed) const override;

private:
    class FieldsOfControl;

    /// Defaults where there is none.
    const Control& read(Id id) const;
    /// Makes one where there is none.
    Control& at(Id id);

    const Forms::FieldLists& lists;
    ControlMap controls;
    std::optional<Cell> emptyCell;
};
}  // namespace Gui::Controls
