#pragma once

#include <vector>

#include "backend/values/OrvMidiMessage.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/Panel.h"
#include "gui/screens/midiinput/EventRecords.h"
#include "gui/screens/midiinput/MidiInputGuiMessageManager.h"

class QLabel;
class QPushButton;

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::MidiInput
{
class ReceivedList;

/// The screen of the MIDI inputs: the entries of events, and what is received; beneath them, what the selected entries
/// make of their events is edited. It shows its own copy of the entries.
class MidiInputPanel final : public Panel
{
public:
    MidiInputPanel(OrvGuiIF& owner, Panel* around);

    EventRecords& getRecords() { return records; }

    // Changes that the backend reports
    /// Those without translations were removed.
    void handleEventConfigurations(const std::vector<EventRecords::Entry>& configurations);
    void handleMidiInput(const EventRecords::Entries& entries);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    using Event = Backend::MidiEngine::OrvMidiMessage;

    void makeTopRow();
    void makeLists();
    void makeSettings();
    void takeLists();
    void fit();
    void showReported();
    void showPreview();
    void addEntryOf(const Event& received);
    void addEntry();
    void addEntry(const EventRecords::MidiEvent& event);
    const EventRecords::Entry* findEntry(const Event& received) const;

    OrvGuiIF& gui;
    Forms::FieldLists lists;
    QStringList inputs;
    EventRecords records{lists, inputs};
    Forms::RecordEditor editor;
    EventRecords::Entries reported;  // the records follow it when all edits are acknowledged
    MidiInputGuiMessageManager messages;
    ReceivedList* received = nullptr;  // these are owned by their Qt parents
    QWidget* settings = nullptr;
    QLabel* preview = nullptr;
    QPushButton* deleteButton = nullptr;
    QPushButton* editButton = nullptr;
};
}  // namespace Gui::MidiInput
