#include "gui/forms/FieldMaker.h"

#include <QObject>
#include <algorithm>

#include "backend/values/ControllerNames.h"
#include "backend/values/Note.h"
#include "backend/values/NoteIntervals.h"
#include "backend/values/ProgramNames.h"

namespace Gui::Forms
{
using namespace Backend;

namespace
{
using Edit = FormField::Edit;
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiMessage;
using Kind = MidiTranslationValue::Kind;

constexpr int HIGHEST_DATA = 127;
constexpr int HIGHEST_TWO_BYTES = 16383;
constexpr int CHANNELS = 16;
constexpr int OCTAVE = 12;
constexpr int WIDE_STEP = 10;
constexpr int HIGHEST_CELL = 16;
constexpr int HIGHEST_ITEM = 16'384;    // of a bank
constexpr int HIGHEST_CHANGE = 32'767;  // of a position on the desktop, the largest of all

QString number(int value) { return QString::number(value); }

FieldMaker::Access<int> kindOf(auto value)
{
    return {[value] { return static_cast<int>(value.get().kind); },
            [value](int kind) {
                auto changed = value.get();
                changed.kind = static_cast<decltype(changed.kind)>(kind);
                value.set(changed);
            }};
}

template <class Type>
auto isKind(const FieldMaker::Access<Type>& value, std::initializer_list<decltype(Type::kind)> kinds)
{
    return [value, kinds = std::vector(kinds)] { return std::ranges::find(kinds, value.get().kind) != kinds.end(); };
}

FieldMaker::Access<RelativeFixedValue> fixedOf(const FieldMaker::Access<MidiTranslationValue>& value)
{
    return {[value] { return value.get().fixed; },
            [value](RelativeFixedValue fixed) {
                MidiTranslationValue changed = value.get();
                changed.fixed = fixed;
                value.set(changed);
            }};
}

FieldMaker::Access<int> numberOf(const FieldMaker::Access<RelativeFixedValue>& value)
{
    return {[value] { return value.get().value; }, [value](int number) { value.set({.value = number}); }};
}

/// The names of the data bytes of an event, which may be used or changed.
FieldMaker::Choices eventKinds()
{
    return {{QObject::tr("D1 of the event"), static_cast<int>(Kind::useD1)},
            {QObject::tr("D2 of the event"), static_cast<int>(Kind::useD2)},
            {QObject::tr("D1 changed"), static_cast<int>(Kind::d1Relative)},
            {QObject::tr("D2 changed"), static_cast<int>(Kind::d2Relative)}};
}

FieldMaker::Choices named(const std::function<std::string(int)>& nameOf)
{
    FieldMaker::Choices choices;
    for (int value = 0; value <= HIGHEST_DATA; ++value)
        choices.push_back({number(value) + ' ' + QString::fromStdString(nameOf(value)), value});
    return choices;
}

template <class Enum>
FieldMaker::Choices selectChoices(const FieldMaker::Kinds& kinds)
{
    FieldMaker::Choices choices;
    const auto add = [&choices](const char* text, Enum kind) {
        choices.push_back({QObject::tr(text), static_cast<int>(kind)});
    };
    if (kinds.upDown) {
        add("Up", Enum::up);
        add("Down", Enum::down);
    }
    if constexpr (std::is_same_v<Enum, SelectControlType::Kind>)
        if (kinds.upDown) {
            add("Left", Enum::left);
            add("Right", Enum::right);
        }
    if (kinds.selected) add("Selected", Enum::selected);
    if (kinds.specific) add("Specific", Enum::specific);
    if (kinds.all) add("All", Enum::all);
    return choices;
}
}  // namespace

// --- the forms of a value

void FieldMaker::addList(const QString& name, Choices choices, Access<int> value, IsUsed isUsed)
{
    fields.push_back({.name = name, .choices = choices, .isUsed = std::move(isUsed)});
    fields.back().get = [choices, value] {
        const auto choice = std::ranges::find(choices, value.get(), &FormField::Choice::value);
        return choice != choices.end() ? choice->text : QObject::tr("%1 (missing)").arg(value.get());
    };
    fields.back().set = [choices = std::move(choices), value](const QString& text) {
        const auto choice = std::ranges::find(choices, text, &FormField::Choice::text);
        if (choice != choices.end()) value.set(choice->value);
    };
}

void FieldMaker::addText(const QString& name, const QStringList& choices, Access<std::string> value, IsUsed isUsed)
{
    fields.push_back({.name = name, .edit = Edit::text, .isUsed = std::move(isUsed)});
    for (const QString& choice : choices) fields.back().choices.push_back({choice});
    fields.back().get = [value] { return QString::fromStdString(value.get()); };
    fields.back().set = [value](const QString& text) { value.set(text.toStdString()); };
}

void FieldMaker::addNumber(const QString& name, Limits limits, Access<int> value, IsUsed isUsed)
{
    using MidiEngine::Note;
    fields.push_back({.name = name,
                      .edit = limits.isNote ? Edit::note : Edit::number,
                      .lowest = limits.lowest,
                      .highest = limits.highest,
                      .limits = limits.follow,
                      .wideStep = limits.isNote ? OCTAVE : WIDE_STEP,
                      .mayBeBlank = limits.none.has_value(),
                      .isUsed = std::move(isUsed)});
    fields.back().get = [limits, value] {
        const int now = value.get();
        if (limits.none && now == *limits.none) return QString();
        return limits.isNote ? QString::fromStdString(Note(now).toXmlString()) : number(now + limits.offset);
    };
    fields.back().set = [limits, value](const QString& text) {
        if (text.isEmpty()) return value.set(limits.none.value_or(limits.lowest));
        value.set(limits.isNote ? Note(text.toStdString()).getNumber() : text.toInt() - limits.offset);
    };
}

void FieldMaker::addChange(const QString& name, FormField::Range limits, Access<RelativeFixedValue> value,
                           IsUsed isUsed, int wideStep)
{
    fields.push_back({.name = name,
                      .edit = Edit::change,
                      .lowest = limits.lowest,
                      .highest = limits.highest,
                      .wideStep = wideStep,
                      .isUsed = std::move(isUsed)});
    fields.back().get = [value] { return QString::fromStdString(value.get().toXmlString()); };
    fields.back().set = [value](const QString& text) {
        value.set(RelativeFixedValue::fromXmlString(text.toStdString()));
    };
}

void FieldMaker::addSwitch(const QString& name, Access<bool> value)
{
    addList(name, {{QObject::tr("On"), 1}, {QObject::tr("Off"), 0}},
            {[value] { return value.get() ? 1 : 0; }, [value](int on) { value.set(on != 0); }});
}

void FieldMaker::addRange(const QString& lowName, const QString& highName, const Limits& limits, const Access<int>& low,
                          const Access<int>& high)
{
    Limits ofLow = limits;
    Limits ofHigh = limits;
    ofLow.follow = [limits, high] { return FormField::Range{limits.lowest, high.get()}; };
    ofHigh.follow = [limits, low] { return FormField::Range{low.get(), limits.highest}; };
    addNumber(lowName, std::move(ofLow), low);
    addNumber(highName, std::move(ofHigh), high);
}

void FieldMaker::addFraction(const QString& name, Access<Fraction> value)
{
    fields.push_back({.name = name, .edit = Edit::fraction});
    fields.back().get = [value] { return QString::fromStdString(value.get().toDisplayString()); };
    fields.back().set = [value](const QString& text) { value.set(Fraction::fromXmlString(text.toStdString())); };
}

void FieldMaker::addLength(const QString& name, FormField::Range pulses, Access<int> value, IsUsed isUsed)
{
    FormField field{.name = name, .edit = Edit::length, .lowest = pulses.lowest, .highest = pulses.highest};
    for (int index = 1; index <= NOTE_INTERVALS; ++index) {
        const int length = noteIntervalFromIndex(index);
        if (length >= pulses.lowest && length <= pulses.highest)
            field.choices.push_back({QString::fromStdString(noteIntervalName(length)), length});
    }
    field.get = [value] { return QString::fromStdString(noteIntervalName(value.get())); };
    field.set = [value, choices = field.choices](const QString& text) {
        const auto choice = std::ranges::find(choices, text, &FormField::Choice::text);
        value.set(choice != choices.end() ? choice->value : text.toInt());
    };
    field.isUsed = std::move(isUsed);
    fields.push_back(std::move(field));
}

// --- the lists that screens share

void FieldMaker::addOutput(const QString& name, Access<int> value, IsUsed isUsed)
{
    Choices choices{{QObject::tr("Default"), -1}};
    for (int output = 0; output < lists.outputs.size(); ++output)
        if (!lists.outputs[output].isEmpty()) choices.push_back({lists.outputs[output], output});
    addList(name, std::move(choices), std::move(value), std::move(isUsed));
}

void FieldMaker::addZone(Access<int> value)
{
    addNumber(QObject::tr("Zone"), {.lowest = 1, .highest = HIGHEST_DATA + 1, .offset = 1, .none = -1},
              std::move(value));
}

void FieldMaker::addChannel(bool isTranslation, Access<int> value)
{
    Choices choices{{QObject::tr("Default"), -1}};
    if (isTranslation) choices.insert(choices.begin(), {QObject::tr("Unchanged"), -2});
    for (int channel = 0; channel < CHANNELS; ++channel) choices.push_back({number(channel + 1), channel});
    addList(QObject::tr("Channel"), std::move(choices), std::move(value));
}

FieldMaker::Choices FieldMaker::getDataMenu() { return named(MidiEngine::getControllerName); }

FieldMaker::Choices FieldMaker::getGmProgramMenu() { return named(MidiEngine::getProgramName); }

void FieldMaker::addController(const QString& name, Access<int> value, IsUsed isUsed)
{
    addList(name, getDataMenu(), std::move(value), std::move(isUsed));
}

void FieldMaker::addValueEvent(const Access<MidiMessage>& value)
{
    Choices kinds{{QObject::tr("None"), static_cast<int>(MessageType::none)}};
    for (const MessageType type : {MessageType::controllerChange, MessageType::pitchBend, MessageType::channelPressure,
                                   MessageType::programChange, MessageType::keyPressure, MessageType::noteOn,
                                   MessageType::noteOff, MessageType::songSelect})
        kinds.push_back({QString::fromStdString(MidiMessage::getEventNameStatic(type)), static_cast<int>(type)});
    addList(QObject::tr("Event"), std::move(kinds),
            {[value] { return static_cast<int>(value.get().getStatus()); },
             [value](int type) {
                 MidiMessage event = value.get();
                 event.setMessageType(static_cast<MessageType>(type));
                 value.set(event);
             }});
    const auto data = [value](int (*get)(const MidiMessage&), void (MidiMessage::*set)(int)) {
        return Access<int>{[value, get] { return get(value.get()); },
                           [value, set](int number) {
                               MidiMessage event = value.get();
                               (event.*set)(number);
                               value.set(event);
                           }};
    };
    addController(QObject::tr("Controller"),
                  data([](const MidiMessage& event) { return int{event.getD1()}; }, &MidiMessage::setD1),
                  [value] { return value.get().isControllerChange(); });
    addNumber(QObject::tr("Velocity"), {},
              data([](const MidiMessage& event) { return int{event.getD2()}; }, &MidiMessage::setD2),
              [value] { return value.get().isNote() || value.get().getStatus() == MessageType::keyPressure; });
}

int FieldMaker::getHighestValue(const MidiMessage& event)
{
    return event.isPitchBend() ? HIGHEST_TWO_BYTES : HIGHEST_DATA;
}

void FieldMaker::addEvent(const QString& name, const Access<MidiMessage>& value)
{
    Choices choices{{QObject::tr("None"), static_cast<int>(MessageType::none)}};
    for (const MessageType type :
         {MessageType::noteOn, MessageType::noteOff, MessageType::keyPressure, MessageType::controllerChange,
          MessageType::programChange, MessageType::channelPressure, MessageType::pitchBend, MessageType::songPosition,
          MessageType::songSelect})
        choices.push_back({QString::fromStdString(MidiMessage(type).getEventName()), static_cast<int>(type)});
    addList(name, std::move(choices),
            {[value] { return static_cast<int>(value.get().getStatus()); },
             [value](int type) {
                 MidiMessage event = value.get();
                 event.setMessageType(static_cast<MessageType>(type));
                 value.set(event);
             }});
    const Access<int> data{[value] { return static_cast<int>(value.get().getD1()); },
                           [value](int d1) {
                               MidiMessage event = value.get();
                               event.setD1(d1);
                               value.set(event);
                           }};
    addController(QObject::tr("Controller"), data, [value] { return value.get().isControllerChange(); });
    addNumber(QObject::tr("Note"), {.isNote = true}, data,
              [value] { return value.get().isNote() || value.get().getStatus() == MessageType::keyPressure; });
}

FormField::Range FieldMaker::getValueRange(const MidiMessage& event)
{
    const bool hasTwoBytes = event.isPitchBend() || event.getStatus() == MessageType::songPosition;
    return {0, hasTwoBytes ? HIGHEST_TWO_BYTES : HIGHEST_DATA};
}

void FieldMaker::addProgram(const QString& name, Access<int> value)
{
    addList(name, getGmProgramMenu(), std::move(value));
}

// --- values of functions and translations

void FieldMaker::addValue(const QString& name, Access<OnOffToggle> value)
{
    using State = OnOffToggle::State;
    addList(name,
            {{QObject::tr("On"), static_cast<int>(State::on)},
             {QObject::tr("Off"), static_cast<int>(State::off)},
             {QObject::tr("Toggle"), static_cast<int>(State::toggle)}},
            {[value] { return static_cast<int>(value.get().state); },
             [value](int state) { value.set({static_cast<State>(state)}); }});
}

void FieldMaker::addValue(const QString& name, Access<NoteToggle> value)
{
    using Mode = NoteToggle::Mode;
    addList(name,
            {{QObject::tr("Off"), static_cast<int>(Mode::off)},
             {QObject::tr("Type 1"), static_cast<int>(Mode::type1)},
             {QObject::tr("Type 2"), static_cast<int>(Mode::type2)}},
            {[value] { return static_cast<int>(value.get().mode); },
             [value](int mode) { value.set({static_cast<Mode>(mode)}); }});
}

void FieldMaker::addValue(const QString& name, Access<RelativeFixedValue> value)
{
    addChange(name, {0, HIGHEST_CHANGE}, std::move(value));
}

void FieldMaker::addValue(const QString& name, Access<MidiTranslationValue> value)
{
    Choices kinds = eventKinds();
    kinds.push_back({QObject::tr("Specific"), static_cast<int>(Kind::specific)});
    addList(name, std::move(kinds), kindOf(value));
    addChange(QObject::tr("%1: specific").arg(name), {0, HIGHEST_CHANGE}, fixedOf(value),
              isKind(value, {Kind::specific}));
    addChangeOfData(QObject::tr("%1: changed by").arg(name), value);
}

void FieldMaker::addSpecific(const Kinds& kinds, Access<int> value, IsUsed isUsed)
{
    if (kinds.isOutput) return addOutput(QObject::tr("Output"), std::move(value), std::move(isUsed));
    addNumber(QObject::tr("Number"), {.lowest = 1, .highest = HIGHEST_ITEM, .offset = 1}, std::move(value),
              std::move(isUsed));
}

void FieldMaker::addSelect(const Kinds& kinds, Access<SelectType> value)
{
    addList(QObject::tr("Which"), selectChoices<SelectType::Kind>(kinds), kindOf(value));
    if (!kinds.specific) return;
    addSpecific(kinds,
                {[value] { return value.get().value; },
                 [value](int item) {
                     SelectType changed = value.get();
                     changed.value = item;
                     value.set(changed);
                 }},
                isKind(value, {SelectType::Kind::specific}));
}

void FieldMaker::addSelect(const Kinds& kinds, Access<MidiTranslationValue> value)
{
    Choices choices = selectChoices<Kind>({.upDown = kinds.upDown,
                                           .selected = kinds.selected,
                                           .specific = kinds.specific});  // all items have no text in files
    if (kinds.fromEvent) {
        const Choices more = eventKinds();
        choices.insert(choices.end(), more.begin(), more.end());
    }
    addList(QObject::tr("Which"), std::move(choices), kindOf(value));
    addSpecific(kinds, numberOf(fixedOf(value)), isKind(value, {Kind::specific}));
    if (kinds.fromEvent) addChangeOfData(QObject::tr("Changed by"), value);
}

/// What is added to D1 or D2.
void FieldMaker::addChangeOfData(const QString& name, const Access<MidiTranslationValue>& value)
{
    addNumber(name, {.lowest = -HIGHEST_DATA, .highest = HIGHEST_DATA}, numberOf(fixedOf(value)),
              isKind(value, {Kind::d1Relative, Kind::d2Relative}));
}

void FieldMaker::addControlSelect(const Kinds& kinds, Access<SelectControlType> value)
{
    addList(QObject::tr("Which"), selectChoices<SelectControlType::Kind>(kinds), kindOf(value));
    const auto addPlace = [&](const QString& name, std::int32_t Cell::*place) {
        addNumber(name, {.lowest = 1, .highest = HIGHEST_CELL, .offset = 1},
                  {[value, place] { return value.get().cell.*place; },
                   [value, place](int at) {
                       SelectControlType changed = value.get();
                       changed.cell.*place = at;
                       value.set(changed);
                   }},
                  isKind(value, {SelectControlType::Kind::specific}));
    };
    addPlace(QObject::tr("Row"), &Cell::row);
    addPlace(QObject::tr("Column"), &Cell::col);
}
}  // namespace Gui::Forms
