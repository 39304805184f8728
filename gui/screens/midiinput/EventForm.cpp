#include "gui/screens/midiinput/EventForm.h"

#include <QVBoxLayout>
#include <algorithm>
#include <set>
#include <utility>

#include "backend/model/RecordFields.h"
#include "gui/forms/FieldMaker.h"
#include "gui/forms/RecordEditor.h"
#include "gui/forms/SettingsForm.h"
#include "gui/framework/EditPoster.h"
#include "gui/screens/midiinput/EventText.h"

namespace Gui::MidiInput
{
using namespace Backend;
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;
using MidiEvent = EventRecords::MidiEvent;

namespace
{
constexpr int COLUMNS = 3;
constexpr int CHANNELS = 16;

/// What an input can receive.
constexpr MessageType KINDS[] = {MessageType::noteOn,        MessageType::noteOff,
                                 MessageType::keyPressure,   MessageType::controllerChange,
                                 MessageType::programChange, MessageType::channelPressure,
                                 MessageType::pitchBend,     MessageType::songPosition,
                                 MessageType::songSelect,    MessageType::unofficialBusSelect,
                                 MessageType::tuneRequest,   MessageType::timingTick,
                                 MessageType::startSong,     MessageType::continueSong,
                                 MessageType::stopSong,      MessageType::activeSensing,
                                 MessageType::systemReset};
}  // namespace

EventForm::EventForm(GuiContext& owner, Forms::RecordEditor& shownEditor, EventRecords& shownRecords,
                     const QStringList& inputNames, QWidget* parent)
    : QWidget(parent),
      editor(shownEditor),
      records(shownRecords),
      inputs(inputNames),
      form(new Forms::SettingsForm(owner, nullptr, COLUMNS))
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(form);
    form->execute = [this](const QString& field, const std::function<void()>& set) {
        set();
        move(field);
    };
    form->onRemark = [this](const QString& remark) { editor.say(remark); };
    editor.observe(*this, [this] { showSelected(); });
    showSelected();
}

void EventForm::showSelected()
{
    if (isMoving) return;
    const auto ids = editor.isOpen() ? editor.getSelection().getSelected() : std::vector<Id>();
    if (ids == shown) return form->follow();
    shown = ids;
    events.clear();
    for (const Id id : shown) events.push_back(EventRecords::eventOf(id));
    std::vector<std::vector<Forms::FormField>> fields;
    for (MidiEvent& event : events) fields.push_back(fieldsOf(event));
    form->setRecords(std::move(fields));
}

std::vector<Forms::FormField> EventForm::fieldsOf(MidiEvent& event) const
{
    using Choices = Forms::FieldMaker::Choices;
    const auto part = [&event](std::int8_t MidiEvent::*member) {
        return Forms::FieldMaker::Access<int>{
            [&event, member] { return event.*member; },
            [&event, member](int value) { event.*member = static_cast<std::int8_t>(value); }};
    };
    Forms::FieldMaker make(none);
    Choices ports{{EventText::inputOf(MidiEvent::ALL, inputs), MidiEvent::ALL}};
    for (int input = 0; input < std::max<int>(static_cast<int>(inputs.size()), event.input + 1); ++input)
        ports.push_back({EventText::inputOf(input, inputs), input});
    make.addList(tr("Input"), std::move(ports), part(&MidiEvent::input));
    Choices channels{{tr("All"), MidiEvent::ALL}};
    for (int channel = 0; channel < CHANNELS; ++channel) channels.push_back({QString::number(channel + 1), channel});
    make.addList(tr("Event channel"), std::move(channels), part(&MidiEvent::channel),
                 [&event] { return !event.message.isSystem(); });
    Choices kinds;
    for (const MessageType kind : KINDS)
        kinds.push_back({QString::fromStdString(MidiMessage(kind).getEventName()), static_cast<int>(kind)});
    make.addList(tr("Event"), std::move(kinds),
                 {[&event] { return static_cast<int>(event.message.getStatus()); },
                  [&event](int kind) { event.message.setMessageType(static_cast<MessageType>(kind)); }});
    const Forms::FieldMaker::Access<int> number{[&event] { return event.message.getD1(); },
                                                [&event](int d1) { event.message.setD1(d1); }};
    make.addNumber(tr("Event note"), {.isNote = true}, number, [&event] { return event.message.isNote(); });
    make.addController(tr("Event controller"), number, [&event] { return event.message.isControllerChange(); });
    return make.take();
}

void EventForm::move(const QString& field)
{
    std::vector<Id> targets;
    for (const MidiEvent& event : events) targets.push_back(EventRecords::idOf(event));
    if (targets == shown) return;
    const std::set<Id> distinct(targets.begin(), targets.end());
    const auto isTaken = [this](Id id) {
        return std::ranges::find(shown, id) == shown.end() && records.find(id) != nullptr;
    };
    const auto taken = std::ranges::find_if(targets, isTaken);
    if (distinct.size() < targets.size() || taken != targets.end()) {
        editor.say(tr("There is an entry of that event already."));
        for (std::size_t i = 0; i < shown.size(); ++i) events[i] = EventRecords::eventOf(shown[i]);
        return form->follow();
    }
    Edit edit{
        .section = records.getKind().section,
        .name = ((shown.size() == 1 ? records.nameOf(shown.front()) : records.getKind().many) + ' ' + field.toLower())
                    .toStdString(),
        .gesture = editor.getEdits().gestureOf("event " + field.toStdString())};
    for (const Id id : shown) edit.records.push_back({.kind = RecordEdit::Kind::remove, .id = id});
    records.move(shown, targets);
    for (const Id id : targets)
        edit.records.push_back(
            {.kind = RecordEdit::Kind::add, .id = id, .fields = RecordFields::read(records.write(id))});
    editor.getEdits().post(std::move(edit));

    isMoving = true;
    Forms::Selection& selection = editor.getSelection();
    std::vector<Id> both = records.getIds();
    both.insert(both.end(), shown.begin(), shown.end());
    selection.setRecords(std::move(both));  // so that something is selected all the time
    selection.select(targets);
    selection.setRecords(records.getIds());
    isMoving = false;
    const bool isSameOrder = selection.getSelected() == targets;
    if (isSameOrder) shown = targets;  // the fields stay, and the focus
    showSelected();
}
}  // namespace Gui::MidiInput
