#include "gui/forms/ButtonRecords.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/model/ButtonConfiguration.h"
#include "gui/forms/AddFunctionBatchVisitor.h"
#include "gui/forms/FieldMaker.h"
#include "gui/forms/FunctionCaption.h"
#include "gui/forms/SetHelpVisitor.h"

namespace Gui::Forms
{
using namespace Backend;
using FunctionManagement::Function;

namespace
{
using Event = FunctionManagement::MidiSettingsType;

bool isDown(int row) { return row % 2 == 0; }
int entryOf(int row) { return row / 2; }

Event* eventOf(Function* function, MidiEngine::MessageType status)
{
    auto* const event = dynamic_cast<Event*>(function);
    return event != nullptr && event->getStatus() == status ? event : nullptr;
}

/// A note-on and its note-off.
struct NotePair {
    explicit NotePair(const ButtonFunction& entry)
        : on(eventOf(entry.downFunction.get(), MidiEngine::MessageType::noteOn)),
          off(eventOf(entry.upFunction.get(), MidiEngine::MessageType::noteOff))
    {
    }

    /// Whether the note-off ends the note.
    bool isPair() const
    {
        return on != nullptr && off != nullptr && on->getZone() == off->getZone() &&
               on->getOutput() == off->getOutput() && on->getChannel() == off->getChannel() &&
               on->getD1() == off->getD1();
    }
    void join() const
    {
        off->setZone(on->getZone());
        off->setOutput(on->getOutput());
        off->setChannel(on->getChannel());
        off->setD1(on->getD1());
    }

    Event* on;
    Event* off;
};

/// Calls `set`, which changes the note-on; its note-off follows.
void setWithNoteOff(const ButtonFunction& entry, const std::function<void()>& set)
{
    const NotePair pair(entry);
    const bool wasPair = pair.isPair();
    set();
    if (wasPair) pair.join();
}
}  // namespace

std::string ButtonRecords::write(Id id) const
{
    std::ostringstream out;
    if (const ButtonConfiguration* const button = find(id)) button->writeXml(out, 0);
    return out.str();
}

int ButtonRecords::countEntries(Id id) const
{
    const ButtonConfiguration* const button = find(id);
    return button == nullptr ? 1 : std::max(1, static_cast<int>(button->getEntries().size()));
}

const ButtonFunction* ButtonRecords::findEntry(Id id, int row) const
{
    const ButtonConfiguration* const button = find(id);
    const auto entry = static_cast<std::size_t>(entryOf(row));
    return button == nullptr || entry >= button->getEntries().size() ? nullptr : &button->getEntries()[entry];
}

Function* ButtonRecords::findFunction(Id id, int row) const
{
    const ButtonFunction* const entry = findEntry(id, row);
    return entry == nullptr ? nullptr : (isDown(row) ? entry->downFunction : entry->upFunction).get();
}

QString ButtonRecords::nameOfRow(int row) const
{
    return (isDown(row) ? QObject::tr("%1 down") : QObject::tr("%1 up")).arg(entryOf(row) + 1);
}

std::string ButtonRecords::getType(Id id, int row) const
{
    const Function* const function = findFunction(id, row);
    return std::string(function == nullptr ? FunctionManagement::NO_FUNCTION : function->getType());
}

QString ButtonRecords::describeRow(Id id, int row) const
{
    const Function* const function = findFunction(id, row);
    return function == nullptr ? QObject::tr("None") : FunctionCaption::describe(*function);
}

std::vector<FormField> ButtonRecords::fieldsOfRow(Id id, int row)
{
    Function* const function = findFunction(id, row);
    if (function == nullptr) return {};
    std::vector<FormField> fields = Forms::fieldsOf(*function, lists);
    if (!isDown(row)) return fields;
    for (FormField& field : fields)
        field.set = [this, id, row, set = std::move(field.set)](const QString& text) {
            setWithNoteOff(*findEntry(id, row), [&] { set(text); });
        };
    FieldMaker make(lists);
    make.addSwitch(
        QObject::tr("Keep sending"),
        {[this, id, row] { return findEntry(id, row)->keepSending; },
         [this, id, row](bool on) { at(id).getEntries()[static_cast<std::size_t>(entryOf(row))].keepSending = on; }});
    fields.push_back(std::move(make.take().front()));
    return fields;
}

void ButtonRecords::setHelp(Id id, int row, QWidget& control) const
{
    SetHelpVisitor visitor(control);
    auto* const settings = dynamic_cast<FunctionManagement::FunctionSettingsType*>(findFunction(id, row));
    if (settings != nullptr)
        settings->accept(visitor);
    else
        control.setProperty(Property::HELP, {});
}

bool ButtonRecords::hasNote(Id id, int row) const
{
    const auto* const event = dynamic_cast<const Event*>(findFunction(id, row));
    return event != nullptr && AddFunctionBatchVisitor::hasNote(*event);
}

// --- changes of the copies

void ButtonRecords::choose(Id id, int row, const std::string& typeName)
{
    auto& entries = at(id).getEntries();
    const auto index = static_cast<std::size_t>(entryOf(row));
    if (entries.size() <= index) entries.resize(index + 1);
    ButtonFunction& entry = entries[index];
    (isDown(row) ? entry.downFunction : entry.upFunction) = FunctionManagement::createFunction(typeName, orv);
    if (NotePair(entry).on != nullptr && isDown(row) && entry.upFunction == nullptr) {
        entry.upFunction =
            FunctionManagement::createFunction(FunctionManagement::Functions::MidiNoteOff::info.typeName, orv);
        NotePair(entry).join();
    }
    bindingsReplaced();
}

void ButtonRecords::raiseNotes(const std::vector<Id>& ids, int row, RisingNotes notes)
{
    const int first = dynamic_cast<const Event&>(*findFunction(ids.front(), row)).getD1();
    if (first < 0) return;
    AddFunctionBatchVisitor visitor(notes, first);
    for (const Id id : ids) {
        setWithNoteOff(*findEntry(id, row), [&] { findFunction(id, row)->accept(visitor); });
        visitor.goOn();
    }
}

bool ButtonRecords::canAddEntry(Id id) const
{
    const ButtonConfiguration* const button = find(id);
    return button != nullptr && !button->getEntries().empty() && button->getEntries().back().isUsed();
}

void ButtonRecords::addEntry(Id id) { at(id).addEntry({}); }

void ButtonRecords::removeEntry(Id id, int entry)
{
    if (find(id) == nullptr || entry >= static_cast<int>(find(id)->getEntries().size())) return;
    auto& entries = at(id).getEntries();
    entries.erase(entries.begin() + entry);
    bindingsReplaced();
}

void ButtonRecords::moveEntry(Id id, int entry, int by)
{
    const int target = entry + by;
    if (find(id) == nullptr || target < 0 || std::max(entry, target) >= static_cast<int>(find(id)->getEntries().size()))
        return;
    auto& entries = at(id).getEntries();
    std::swap(entries[static_cast<std::size_t>(entry)], entries[static_cast<std::size_t>(target)]);
    bindingsReplaced();
}
}  // namespace Gui::Forms
