// The settings of a control.

#include <QObject>
#include <algorithm>

#include "gui/forms/FieldMaker.h"
#include "gui/screens/controls/ControlRecords.h"

namespace Gui::Controls
{
using namespace Backend;
using Backend::Controls::ControlFunction;
using Forms::FieldMaker;
using Forms::FormField;
using MidiEngine::MidiMessage;
using Type = Backend::Controls::ControlType::Kind;

namespace
{
constexpr int MOST_EVENTS = 16;
constexpr int USUAL_FADER_SIZE = 2;

MidiMessage firstEventOf(const ControlRecords::Control& control)
{
    return control.functions.empty() ? MidiMessage() : control.functions.front().midiEvent;
}

void setFirstEvent(ControlRecords::Control& control, const MidiMessage& event)
{
    const int before = FieldMaker::getHighestValue(firstEventOf(control));
    const int now = FieldMaker::getHighestValue(event);
    control.functions.resize(std::max<std::size_t>(1, control.functions.size()));
    control.functions.front().midiEvent = event;
    for (std::int32_t* const end : {&control.min, &control.max}) *end = *end == before ? now : std::min(*end, now);
    control.release = std::min(control.release, now);
    control.store(control.value);
}
}  // namespace

void ControlRecords::setEvent(Id id, const MidiMessage& event) { setFirstEvent(at(id), event); }

int ControlRecords::countEvents() const
{
    std::size_t most = 1;
    controls.forEach([&](const Control& control) { most = std::max(most, control.functions.size()); });
    return static_cast<int>(most);
}

/// Makes the fields of one record, which read and set the copy whenever there is one.
class ControlRecords::FieldsOfControl
{
public:
    FieldsOfControl(ControlRecords& shownRecords, Id record)
        : records(shownRecords), id(record), make(shownRecords.lists)
    {
    }

    std::vector<FormField> take()
    {
        addType();
        std::vector<FormField> all = make.take();
        addLook();
        addValues();
        append(all, [&shown = records, key = id] { return shown.find(key) != nullptr; });
        for (int index = 0; index < records.countEvents(); ++index) addEvent(all, index);
        return all;
    }

private:
    template <class Value, class Member>
    FieldMaker::Access<Value> access(Member Control::*member) const
    {
        return {[&shown = records, key = id, member] { return static_cast<Value>(shown.read(key).*member); },
                [&shown = records, key = id, member](Value value) {
                    Control& control = shown.at(key);
                    control.*member = static_cast<Member>(value);
                    control.store(control.value);
                }};
    }
    template <class Value, class Member>
    FieldMaker::Access<Value> access(int index, Member ControlFunction::*member) const
    {
        return {[&shown = records, key = id, index, member] {
                    return static_cast<Value>(functionOf(shown.read(key), index).*member);
                },
                [&shown = records, key = id, index, member](Value value) {
                    functionAt(shown.at(key), index).*member = static_cast<Member>(value);
                }};
    }
    static ControlFunction functionOf(const Control& control, int index)
    {
        return index < std::ssize(control.functions) ? control.functions[static_cast<std::size_t>(index)]
                                                     : ControlFunction();
    }
    static ControlFunction& functionAt(Control& control, int index)
    {
        const auto at = static_cast<std::size_t>(index);
        if (at >= control.functions.size()) control.functions.resize(at + 1);
        return control.functions[at];
    }

    /// Moves what was made to the list, used only where `isUsed` says so.
    void append(std::vector<FormField>& all, const std::function<bool()>& isUsed, const QString& suffix = {})
    {
        for (FormField& field : make.take()) {
            field.name += suffix;
            field.isUsed = [isUsed, also = std::move(field.isUsed)] { return isUsed() && (!also || also()); };
            all.push_back(std::move(field));
        }
    }
    std::function<bool()> isOf(std::initializer_list<Type> kinds) const
    {
        return [&shown = records, key = id, all = std::vector(kinds)] {
            return std::ranges::find(all, shown.read(key).type.kind) != all.end();
        };
    }
    std::function<bool()> sends() const { return isOf({Type::edit, Type::vfader, Type::hfader, Type::knob}); }

    /// A fader that is new, or that becomes one in another direction, has no more cells than there is room for.
    void addType()
    {
        make.addList(QObject::tr("Type"),
                     {{QObject::tr("Nothing"), static_cast<int>(Type::none)},
                      {QObject::tr("Edit"), static_cast<int>(Type::edit)},
                      {QObject::tr("Vertical fader"), static_cast<int>(Type::vfader)},
                      {QObject::tr("Horizontal fader"), static_cast<int>(Type::hfader)},
                      {QObject::tr("Knob"), static_cast<int>(Type::knob)},
                      {QObject::tr("Label"), static_cast<int>(Type::label)}},
                     {[&shown = records, key = id] { return static_cast<int>(shown.read(key).type.kind); },
                      [&shown = records, key = id](int type) {
                          const bool isNew = shown.find(key) == nullptr;
                          Control& control = shown.at(key);
                          control.type.kind = static_cast<Type>(type);
                          if (isNew) control.size = USUAL_FADER_SIZE;
                          control.size = std::min(control.size, shown.getLargestSize(control));
                      }});
    }

    void addLook()
    {
        make.addText(QObject::tr("Caption"), {}, access<std::string>(&Control::name));
        const auto largest = [&shown = records, key = id] {
            return FormField::Range{1, shown.getLargestSize(shown.read(key))};
        };
        make.addNumber(QObject::tr("Size in cells"), {.lowest = 1, .follow = largest}, access<int>(&Control::size),
                       isOf({Type::vfader, Type::hfader}));
    }

    void addValues()
    {
        const auto range = [&shown = records, key = id] {
            const auto [lowest, highest] = std::minmax(shown.read(key).min, shown.read(key).max);
            return FormField::Range{lowest, highest};
        };
        const auto possible = [&shown = records, key = id] {
            return FormField::Range{0, FieldMaker::getHighestValue(firstEventOf(shown.read(key)))};
        };
        make.addNumber(QObject::tr("Value"), {.follow = range}, access<int>(&Control::value), sends());
        make.addNumber(QObject::tr("Minimum"), {.follow = possible}, access<int>(&Control::min), sends());
        make.addNumber(QObject::tr("Maximum"), {.follow = possible}, access<int>(&Control::max), sends());
        make.addNumber(QObject::tr("On release"), {.none = -1, .follow = range}, access<int>(&Control::release),
                       isOf({Type::vfader, Type::hfader, Type::knob}));
        make.addSwitch(QObject::tr("Send when loaded"), access<bool>(&Control::autoSend));
        make.addNumber(QObject::tr("Events"), {.lowest = 0, .highest = MOST_EVENTS},
                       {[&shown = records, key = id] { return static_cast<int>(shown.read(key).functions.size()); },
                        [&shown = records, key = id](int count) {
                            shown.at(key).functions.resize(static_cast<std::size_t>(count));
                        }},
                       sends());
    }

    void addEvent(std::vector<FormField>& all, int index)
    {
        const auto event = access<MidiMessage>(index, &ControlFunction::midiEvent);
        make.addValueEvent({event.get, [&shown = records, key = id, index, event](const MidiMessage& changed) {
                                index == 0 ? setFirstEvent(shown.at(key), changed) : event.set(changed);
                            }});
        append(all, index == 0 ? sends() : hasEvents(index), suffixOf(index));
        make.addOutput(QObject::tr("Output"), access<int>(index, &ControlFunction::output));
        make.addChannel(false, access<int>(index, &ControlFunction::channel));
        make.addZone(access<int>(index, &ControlFunction::zone));
        append(all, hasEvents(index), suffixOf(index));
    }
    std::function<bool()> hasEvents(int index) const
    {
        return [&shown = records, key = id, index] {
            const Control& control = shown.read(key);
            return control.type.sends() && index < std::ssize(control.functions);
        };
    }
    static QString suffixOf(int index) { return index == 0 ? QString() : QStringLiteral(" %1").arg(index + 1); }

    ControlRecords& records;
    const Id id;
    FieldMaker make;
};

std::vector<FormField> ControlRecords::fieldsOf(Id id) { return FieldsOfControl(*this, id).take(); }
}  // namespace Gui::Controls
