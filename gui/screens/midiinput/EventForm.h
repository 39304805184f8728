#pragma once

#include <QWidget>
#include <vector>

#include "gui/screens/midiinput/EventRecords.h"

namespace Gui
{
class GuiContext;

namespace Forms
{
class RecordEditor;
class SettingsForm;
}  // namespace Forms
}  // namespace Gui

namespace Gui::MidiInput
{
/// The events of the selected entries: input, channel, kind and number. A change gives the entries other events, in
/// one step of undo; events that other entries have are refused in the status line. The GUI thread.
class EventForm final : public QWidget
{
public:
    /// All must outlive it.
    EventForm(GuiContext& owner, Forms::RecordEditor& shownEditor, EventRecords& shownRecords,
              const QStringList& inputNames, QWidget* parent = nullptr);

private:
    using Id = EventRecords::Id;

    void showSelected();
    std::vector<Forms::FormField> fieldsOf(EventRecords::MidiEvent& event) const;
    void move(const QString& field);

    Forms::RecordEditor& editor;
    EventRecords& records;
    const QStringList& inputs;
    const Forms::FieldLists none{};
    Forms::SettingsForm* form;
    std::vector<Id> shown;
    std::vector<EventRecords::MidiEvent> events;  // of those that are shown; the fields change them
    bool isMoving = false;
};
}  // namespace Gui::MidiInput
