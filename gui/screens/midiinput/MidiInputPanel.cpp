#include "gui/screens/midiinput/MidiInputPanel.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "api/OrvGuiIF.h"
#include "backend/model/PresetSections.h"
#include "gui/forms/BindingEditor.h"
#include "gui/forms/EditableSections.h"
#include "gui/forms/LearnButton.h"
#include "gui/forms/RecordList.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/InputWatch.h"
#include "gui/framework/Properties.h"
#include "gui/presets/SectionRow.h"
#include "gui/screens/midiinput/EventForm.h"
#include "gui/screens/midiinput/EventText.h"
#include "gui/screens/midiinput/ReceivedList.h"

namespace Gui::MidiInput
{
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiMessage;
using Command = Forms::RecordEditor::Command;

namespace
{
constexpr int WIDTH = 960;  // logical pixels, as all of these
constexpr int MARGIN = 8;
constexpr int LISTS_TOP = 30;
constexpr int LISTS_HEIGHT = 158;
constexpr int HALF = (WIDTH - 3 * MARGIN) / 2;
constexpr int HEIGHT = LISTS_TOP + LISTS_HEIGHT + MARGIN;
constexpr int SETTINGS_HEIGHT = 440;

constexpr int FIRST_NOTE = 60;
constexpr int USUAL_VELOCITY = 100;
constexpr int LAST_NUMBER = 127;
}  // namespace

MidiInputPanel::MidiInputPanel(OrvGuiIF& owner, Panel* around)
    : Panel(around),
      gui(owner),
      editor(records, owner.getEdits(), [this](const QString& text) { gui.displayMessage(text.toStdString()); }),
      messages(*this)
{
    takeLists();
    // Before the settings, which are made from the lists.
    editor.observe(*this, [this] {
        if (editor.isOpen()) takeLists();
    });
    makeTopRow();
    makeLists();
    makeSettings();
    editor.observe(*this, [this] { fit(); });
    fit();
    gui.getGuiMessageManagerMaster().addMessageManager(&messages);
}

void MidiInputPanel::makeTopRow()
{
    auto& row = *new Preset::SectionRow(gui, Backend::PresetSections::MIDI_INPUT, this,
                                        [this] { return editor.getSelection().getSelected(); });
    place(row, {row.PLACE, row.SIZE});
    connect(&row.addButton(tr("Add"), tr("Add event"),
                           tr("Adds an entry of a note of all inputs and channels; its event can be changed.")),
            &QPushButton::clicked, [this] { addEntry(); });
    deleteButton = &row.addButton(
        tr("Delete"), tr("Delete events"),
        tr("Deletes the selected entries. Their events are played as they are, or as a more general entry says."));
    connect(deleteButton, &QPushButton::clicked, [this] { editor.execute(Command::remove); });
    editButton =
        &row.addButton(tr("Edit"), tr("Edit events"), tr("Opens and closes the settings of the selected entries."));
    editButton->setCheckable(true);
    connect(editButton, &QPushButton::clicked, [this](bool on) { editor.setOpen(on); });
    auto* const learn = new Forms::LearnButton(gui.getLearner(), {.midiEvent = true}, &row);
    row.addButton(*learn);
    learn->onLearned = [this](const auto& input) { addEntryOf(std::get<Event>(input)); };
}

void MidiInputPanel::makeLists()
{
    auto* const entries = new Forms::RecordList(editor, this);
    place(*entries, {MARGIN, LISTS_TOP, HALF, LISTS_HEIGHT});
    Property::setHelp(*entries, tr("The events that have an entry, and what they become. An entry of one input or "
                                   "channel hides those of all."));
    gui.getEditableSections().add(editor, *entries);
    received = new ReceivedList(
        [this](const Event& event) {
            const MidiMessage& message = event.getMidiMessage();
            return QStringList{EventText::inputOf(event.getInput(), inputs),
                               message.isSystem() ? QString() : QString::number(event.getChannel() + 1),
                               EventText::kindOf(message), EventText::valueOf(message),
                               EventText::resultOf(EventRecords::Entries::asReceived(event), findEntry(event), lists)};
        },
        this);
    place(*received, {2 * MARGIN + HALF, LISTS_TOP, HALF, LISTS_HEIGHT});
    received->onChoose = [this](const Event& event) { addEntryOf(event); };
}

void MidiInputPanel::makeSettings()
{
    settings = new QWidget(this);
    auto* const column = new QVBoxLayout(settings);
    column->setContentsMargins({});
    column->addWidget(new EventForm(gui, editor, records, inputs));
    preview = new QLabel;
    Property::set(*preview, Property::TEXT, true);
    preview->setTextFormat(Qt::PlainText);
    Property::setHelp(*preview, tr("What the last event of this entry, or one of velocity or value 100, becomes."));
    column->addWidget(preview);
    column->addWidget(new Forms::BindingEditor(gui, editor, records, Forms::BindingEditor::Of::translations), 1);
    place(*settings, {MARGIN, HEIGHT, WIDTH - 2 * MARGIN, SETTINGS_HEIGHT - MARGIN});
}

/// What the settings offer.
void MidiInputPanel::takeLists()
{
    lists = Forms::takeLists(gui);
    inputs.clear();
    for (const auto& port : gui.getMidiInputPorts()) inputs << QString::fromStdString(port.getName());
}

void MidiInputPanel::fit()
{
    const bool isOpen = editor.isOpen();
    const bool isSelected = !editor.getSelection().getSelected().empty();
    deleteButton->setEnabled(isSelected);
    editButton->setEnabled(isSelected || isOpen);
    editButton->setChecked(isOpen);
    settings->setVisible(isOpen && isSelected);
    setPanelSize({WIDTH, HEIGHT + (isOpen && isSelected ? SETTINGS_HEIGHT : 0)});
    received->showTexts();
    showPreview();
}

void MidiInputPanel::showPreview()
{
    const auto selected = editor.getSelection().getSelected();
    if (selected.empty() || !editor.isOpen()) return;
    const EventRecords::Entry* const entry = records.find(selected.front());
    if (entry == nullptr) return;
    const auto& kind = entry->getEvent();
    const Event usual({.type = kind.message.getStatus(),
                       .d1 = kind.hasNumber() ? kind.message.getD1() : USUAL_VELOCITY,
                       .d2 = USUAL_VELOCITY,
                       .channel = std::max<int>(0, kind.channel),
                       .input = kind.input});
    const Event* const last = received->findLast([&](const Event& event) { return findEntry(event) == entry; });
    const Event sample = EventRecords::Entries::asReceived(last != nullptr ? *last : usual);
    preview->setText(EventText::preview(sample, entry, lists));
    preview->setAccessibleName(tr("Preview: %1").arg(preview->text()));
}

const EventRecords::Entry* MidiInputPanel::findEntry(const Event& event) const
{
    return records.getEntries().findTranslations(EventRecords::Entries::asReceived(event));
}

// --- entries

/// Of exactly its input and channel.
void MidiInputPanel::addEntryOf(const Event& event)
{
    auto kind = EventRecords::MidiEvent::of(EventRecords::Entries::asReceived(event));
    if (kind.message.isSystem()) kind.channel = EventRecords::MidiEvent::ALL;
    addEntry(kind);
}

/// Of a note that has none yet.
void MidiInputPanel::addEntry()
{
    for (int note = FIRST_NOTE; note <= LAST_NUMBER; ++note) {
        const EventRecords::MidiEvent event{.message = MidiMessage(MessageType::noteOn, note)};
        if (records.find(EventRecords::idOf(event)) == nullptr) return addEntry(event);
    }
}

/// Or selects the one that it has.
void MidiInputPanel::addEntry(const EventRecords::MidiEvent& event)
{
    const auto id = EventRecords::idOf(event);
    if (records.find(id) == nullptr)
        editor.change({id}, tr("added"), gui.getEdits().beginGesture(), [this, id] { records.add(id); });
    editor.getSelection().setRecords(records.getIds());
    editor.getSelection().select({id});
    editor.setOpen(true);
}

// --- changes that the backend reports

void MidiInputPanel::handleEventConfigurations(const std::vector<EventRecords::Entry>& configurations)
{
    for (const EventRecords::Entry& entry : configurations) {
        if (entry.getTranslations().empty())
            reported.remove(entry.getEvent());
        else
            reported.put(entry.getEvent(), entry);
    }
    showReported();
}

void MidiInputPanel::handleMidiInput(const EventRecords::Entries& entries)
{
    reported = entries;
    showReported();
}

/// An older report that waits shows the newest one.
void MidiInputPanel::showReported()
{
    editor.report([this] { records.take(reported); });
}

// --- what is received

void MidiInputPanel::showEvent(QShowEvent* event)
{
    takeLists();
    gui.getInputWatch().start([this](const InputWatch::Events& events) {
        received->setEvents(events);
        showPreview();
    });
    Panel::showEvent(event);
}

void MidiInputPanel::hideEvent(QHideEvent* event)
{
    gui.getInputWatch().stop();
    received->setEvents({});
    Panel::hideEvent(event);
}
}  // namespace Gui::MidiInput
