#include "gui/screens/joystick/AxisRecords.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "backend/model/PresetSections.h"
#include "backend/values/ControllerNames.h"
#include "backend/values/Note.h"
#include "gui/forms/FieldMaker.h"
#include "gui/framework/Properties.h"
#include "gui/screens/joystick/PartEdits.h"

namespace Gui::Joystick
{
using namespace Backend;
using namespace Backend::Joystick;
using MidiEngine::MidiMessage;

namespace
{
constexpr int HIGHEST_OFFSET = 127;

QString textOf(const MidiMessage& event)
{
    QString text = QString::fromStdString(event.getEventName());
    if (event.isControllerChange())
        text += QStringLiteral(" %1 %2")
                    .arg(event.getD1())
                    .arg(QString::fromStdString(MidiEngine::getControllerName(event.getD1())));
    if (event.isNote()) text += ' ' + QString::fromStdString(MidiEngine::Note(event.getD1()).toXmlString());
    return text;
}

QString textOf(const AxisFunction& function)
{
    if (!function.midiMessage.isValid()) return QObject::tr("None");
    return QObject::tr("%1, %2 to %3").arg(textOf(function.midiMessage)).arg(function.min).arg(function.max);
}

QString axisText(const JoyAxisElementId& axis)
{
    const std::string_view name = getAxisName(axis.axis);
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

/// Limits at the end of the range stay there, and none is beyond it.
void setEvent(AxisFunction& function, const MidiMessage& event)
{
    const int before = Forms::FieldMaker::getValueRange(function.midiMessage).highest;
    const int now = Forms::FieldMaker::getValueRange(event).highest;
    for (std::int32_t* const limit : {&function.min, &function.max})
        *limit = *limit == before ? now : std::min(*limit, now);
    function.midiMessage = event;
}
}  // namespace

// --- the copies

void AxisRecords::take(const std::vector<AxisConfiguration>& reported)
{
    for (const AxisConfiguration& axis : reported) copies.put(axis);
}

const std::vector<AxisFunction>& AxisRecords::getFunctions(Id id) const
{
    return copies.axes.findElement(axisOf(id))->functions;
}

std::vector<AxisFunction>& AxisRecords::functionsOf(Id id) { return copies.axes.findElement(axisOf(id))->functions; }

const AxisFunction& AxisRecords::getFunction(Id id, int row) const
{
    static const AxisFunction NONE;
    const auto& functions = getFunctions(id);
    return row < std::ssize(functions) ? functions[static_cast<std::size_t>(row)] : NONE;
}

AxisFunction& AxisRecords::at(Id id, int row)
{
    auto& functions = functionsOf(id);
    const auto index = static_cast<std::size_t>(row);
    if (index >= functions.size()) functions.resize(index + 1);
    return functions[index];
}

QString AxisRecords::captionOf(Id id) const
{
    const MidiMessage& event = getFunction(id, 0).midiMessage;
    if (!event.isValid()) return {};
    if (event.isControllerChange()) return QStringLiteral("CC %1").arg(event.getD1());
    return event.isPitchBend() ? QObject::tr("Bend") : QString::fromStdString(event.getEventName());
}

// --- the records

const AxisRecords::Kind& AxisRecords::getKind() const
{
    static const Kind KIND{PresetSections::JOYSTICK.rootElement,
                           "Axis",
                           Forms::Selection::Ids::fixed,
                           QObject::tr("axis"),
                           QObject::tr("axes"),
                           QObject::tr("Clear"),
                           false};
    return KIND;
}

std::vector<RecordId> AxisRecords::getIds() const
{
    std::vector<Id> ids;
    for (int joystick = 0; joystick < JOYSTICKS; ++joystick)
        for (int axis = 0; axis < static_cast<int>(JOY_AXES.size()); ++axis) ids.push_back(idOf({joystick, axis}));
    return ids;
}

std::string AxisRecords::write(Id id) const
{
    std::ostringstream out;
    copies.axes.findElement(axisOf(id))->writeXml(out, 0);
    return out.str();
}

QString AxisRecords::describe(Id id) const
{
    QString name = nameOf(id);
    name[0] = name[0].toUpper();
    const auto& functions = getFunctions(id);
    if (functions.empty()) return QObject::tr("%1: sends nothing.").arg(name);
    for (const AxisFunction& function : functions) name += '\n' + textOf(function);
    return name;
}

QString AxisRecords::nameOf(Id id) const
{
    return QObject::tr("joystick %1 axis %2").arg(axisOf(id).joystick + 1).arg(axisText(axisOf(id)));
}

std::vector<RecordEdit> AxisRecords::makeAdditions(std::vector<Fields> added, const Forms::Selection& selection) const
{
    std::vector<Id> targets = selection.getTargets(added.size());
    if (targets.empty())
        for (Fields& fields : added)
            targets.push_back(idOf({QString::fromStdString(RecordFields::valueOf(fields, "joystick")).toInt(),
                                    findAxis(RecordFields::valueOf(fields, "axis"))}));
    return PartEdits::setFunctions(targets, std::move(added));
}

std::vector<RecordEdit> AxisRecords::makeRemovals(const std::vector<Id>& removed) const
{
    return PartEdits::clearFunctions(removed);
}

// --- the entries

int AxisRecords::countEntries(Id id) const { return std::max(1, static_cast<int>(getFunctions(id).size())); }

QString AxisRecords::describeRow(Id id, int row) const { return textOf(getFunction(id, row)); }

std::vector<Forms::FormField> AxisRecords::fieldsOfRow(Id id, int row)
{
    const auto part = [this, id, row](auto AxisFunction::*member) {
        using Value = std::remove_cvref_t<decltype(std::declval<AxisFunction&>().*member)>;
        return Forms::FieldMaker::Access<int>{
            [this, id, row, member] { return static_cast<int>(getFunction(id, row).*member); },
            [this, id, row, member](int value) { at(id, row).*member = static_cast<Value>(value); }};
    };
    const auto hasEvent = [this, id, row] { return getFunction(id, row).midiMessage.isValid(); };
    const auto values = [this, id, row] { return Forms::FieldMaker::getValueRange(getFunction(id, row).midiMessage); };
    Forms::FieldMaker make(lists);
    make.addEvent(QObject::tr("Event"), {[this, id, row] { return getFunction(id, row).midiMessage; },
                                         [this, id, row](const MidiMessage& event) { setEvent(at(id, row), event); }});
    make.addNumber(QObject::tr("Minimum"), {.follow = values}, part(&AxisFunction::min), hasEvent);
    make.addNumber(QObject::tr("Maximum"), {.follow = values}, part(&AxisFunction::max), hasEvent);
    make.addNumber(QObject::tr("Offset"), {.lowest = -HIGHEST_OFFSET, .highest = HIGHEST_OFFSET},
                   part(&AxisFunction::offset), hasEvent);
    make.addOutput(QObject::tr("Output"), part(&AxisFunction::output));
    make.addChannel(false, part(&AxisFunction::channel));
    make.addZone(part(&AxisFunction::zone));
    return make.take();
}

void AxisRecords::setHelp(Id, int, QWidget& control) const
{
    Property::setHelp(control, QObject::tr("What the axis sends: from the minimum at the left or below to the maximum "
                                           "at the right or above. A minimum above the maximum reverses the axis."));
}

bool AxisRecords::canAddEntry(Id id) const
{
    const auto& functions = getFunctions(id);
    return !functions.empty() && functions.back().midiMessage.isValid();
}

void AxisRecords::addEntry(Id id) { functionsOf(id).emplace_back(); }

void AxisRecords::removeEntry(Id id, int entry)
{
    auto& functions = functionsOf(id);
    if (entry < std::ssize(functions)) functions.erase(functions.begin() + entry);
}

void AxisRecords::moveEntry(Id id, int entry, int by)
{
    auto& functions = functionsOf(id);
    if (entry + by < 0 || std::max(entry, entry + by) >= std::ssize(functions)) return;
    std::swap(functions[static_cast<std::size_t>(entry)], functions[static_cast<std::size_t>(entry + by)]);
}
}  // namespace Gui::Joystick
