#include "gui/screens/oscillators/OscRecords.h"

#include <QObject>
#include <algorithm>

#include "backend/values/NoteIntervals.h"
#include "gui/forms/FieldMaker.h"

namespace Gui::Oscillators
{
using namespace Backend;
using Backend::Oscillators::Oscillator;
using Backend::Oscillators::OscillatorType;
using Forms::FieldMaker;
using Forms::FormField;
using MidiEngine::MidiMessage;
using Type = OscillatorType::Kind;

namespace
{
constexpr int MOST_DETAIL = 30;

template <class Value, class Member>
FieldMaker::Access<Value> access(Oscillator& oscillator, Member Oscillator::*member)
{
    return {[&oscillator, member] { return static_cast<Value>(oscillator.*member); },
            [&oscillator, member](Value value) { oscillator.*member = static_cast<Member>(value); }};
}

FieldMaker::Choices getTypes()
{
    return {{QObject::tr("Sin"), static_cast<int>(Type::sin)},
            {QObject::tr("Tri"), static_cast<int>(Type::tri)},
            {QObject::tr("Saw"), static_cast<int>(Type::saw)},
            {QObject::tr("Pulse"), static_cast<int>(Type::pulse)},
            {QObject::tr("Random"), static_cast<int>(Type::random)}};
}

/// An end of the range that is the highest value of the old event becomes that of the new one.
void setEvent(Oscillator& oscillator, const MidiMessage& event)
{
    const int before = FieldMaker::getHighestValue(oscillator.midiMessage);
    const int now = FieldMaker::getHighestValue(event);
    oscillator.midiMessage = event;
    for (std::int32_t* const end : {&oscillator.min, &oscillator.max})
        *end = *end == before ? now : std::min(*end, now);
    oscillator.stopValue = std::min(oscillator.stopValue, now);
}
}  // namespace

std::vector<OscRecords::Id> OscRecords::getTogether(Id id, const Forms::Selection& selection) const
{
    if (selection.isSelected(id)) return selection.getSelected();
    return has(id) ? std::vector{id} : std::vector<Id>{};
}

const OscRecords::Kind& OscRecords::getKind() const
{
    static const Kind KIND{Oscillator::SECTION, Oscillator::ELEMENT, Forms::Selection::Ids::indices,
                           QObject::tr("oscillator"), QObject::tr("oscillators")};
    return KIND;
}

QString OscRecords::describe(Id id) const
{
    const Oscillator& oscillator = at(id);
    const FieldMaker::Choices types = getTypes();
    const auto type = std::ranges::find(types, static_cast<int>(oscillator.type.kind), &FormField::Choice::value);
    const QString line =
        QObject::tr("Oscillator %1, %2, %3, %4")
            .arg(QString::number(id + 1), eventNameOf(oscillator), type->text.toLower(), speedTextOf(oscillator));
    return oscillator.playing ? QObject::tr("%1, running").arg(line) : line;
}

std::vector<FormField> OscRecords::fieldsOf(Id id)
{
    Oscillator& oscillator = at(id);
    const auto possible = [&oscillator] {
        return FormField::Range{0, FieldMaker::getHighestValue(oscillator.midiMessage)};
    };
    FieldMaker make(lists);
    make.addList(QObject::tr("Type"), getTypes(),
                 {[&oscillator] { return static_cast<int>(oscillator.type.kind); },
                  [&oscillator](int kind) { oscillator.type.kind = static_cast<Type>(kind); }});
    make.addValueEvent({[&oscillator] { return oscillator.midiMessage; },
                        [&oscillator](const MidiMessage& event) { setEvent(oscillator, event); }});
    make.addOutput(QObject::tr("Output"), access<int>(oscillator, &Oscillator::output));
    make.addChannel(false, access<int>(oscillator, &Oscillator::channel));
    make.addZone(access<int>(oscillator, &Oscillator::zone));
    make.addLength(QObject::tr("Speed"), {Oscillator::FASTEST, Oscillator::SLOWEST},
                   access<int>(oscillator, &Oscillator::speed));
    make.addNumber(QObject::tr("Minimum"), {.follow = possible}, access<int>(oscillator, &Oscillator::min));
    make.addNumber(QObject::tr("Maximum"), {.follow = possible}, access<int>(oscillator, &Oscillator::max));
    make.addNumber(QObject::tr("Stop value"), {.none = -1, .follow = possible},
                   access<int>(oscillator, &Oscillator::stopValue));
    make.addNumber(QObject::tr("Detail"), {.lowest = 1, .highest = MOST_DETAIL},
                   access<int>(oscillator, &Oscillator::detail));
    return make.take();
}

QString eventNameOf(const Oscillator& oscillator)
{
    const MidiMessage& event = oscillator.midiMessage;
    return event.isValid() ? QString::fromStdString(event.isControllerChange() ? event.getEventNameWithCcAndNoteDetail()
                                                                               : event.getEventName())
                           : QObject::tr("No event");
}

QString speedTextOf(const Oscillator& oscillator)
{
    const bool isNote = oscillator.speedMode.kind == TimeIntervalType::Kind::noteInterval;
    return isNote ? QString::fromStdString(noteIntervalName(oscillator.speed))
                  : QObject::tr("%1 PPQ").arg(oscillator.speed);
}
}  // namespace Gui::Oscillators
