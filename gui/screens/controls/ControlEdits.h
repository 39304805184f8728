#pragma once

#include "gui/screens/controls/ControlRecords.h"

namespace Gui::Forms
{
class RecordEditor;
}

namespace Gui::Controls
{
/// What the screen changes besides the settings of controls. Each is one step of undo, and posted; what cannot be done
/// is refused in the status line. The GUI thread.
class ControlEdits
{
public:
    using Id = ControlRecords::Id;

    /// Both must outlive it.
    ControlEdits(Forms::RecordEditor& shownEditor, ControlRecords& shownRecords)
        : editor(shownEditor), records(shownRecords)
    {
    }

    /// The selected controls, without the empty cell.
    std::vector<Id> getSelected() const;
    /// Selects an empty cell.
    void selectEmpty(const Cell& cell);

    /// Why the selected controls cannot move by so many rows and columns; empty if they can.
    QString findObstacle(const Cell& by) const;
    void move(const Cell& by, std::uint32_t gesture);
    /// A fader becomes as large as there is room for.
    void resize(Id id, int size, std::uint32_t gesture);
    /// In the selected empty cell, or else in the first one.
    void add();
    /// The selected controls send and follow this event as the first one.
    void setEvent(const Backend::MidiEngine::MidiMessage& event);

private:
    Forms::RecordEditor& editor;
    ControlRecords& records;
};
}  // namespace Gui::Controls
