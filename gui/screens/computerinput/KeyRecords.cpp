#include "gui/screens/computerinput/KeyRecords.h"

#include <QObject>
#include <algorithm>
#include <utility>

#include "backend/model/PresetSections.h"
#include "backend/model/RecordFields.h"
#include "gui/forms/FieldMaker.h"
#include "gui/forms/FunctionCaption.h"
#include "gui/screens/computerinput/KeyboardPlan.h"

namespace Gui::ComputerInput
{
using namespace Backend;
using Backend::ComputerInput::KeyConfiguration;
using Backend::ComputerInput::KeyConfigurationMap;

QString KeyRecords::textOf(const Key& key)
{
    if (key.keyCode == Key::RIGHT_OF_LEFT_SHIFT) return QObject::tr("The key right of the left Shift");
    return QString::fromStdString(key.toXmlString());
}

Key KeyRecords::withModifiers(int keyCode, const Key& held)
{
    Key key = held;
    key.keyCode = keyCode;
    if (bool Key::*const own = modifierOf(keyCode)) key.*own = false;
    return key;
}

// --- the copies

void KeyRecords::take(const KeyConfigurationMap& reported)
{
    if (reported == keys) return;
    keys = reported;
    bindingsReplaced();
}

KeyConfiguration& KeyRecords::keyAt(Id id)
{
    const Key key = keyOf(id);
    if (keys.findElement(key) == nullptr) keys.put(KeyConfiguration(key));
    return *keys.findElement(key);
}

// --- the records

const KeyRecords::Kind& KeyRecords::getKind() const
{
    static const Kind KIND{PresetSections::COMPUTER_INPUT.rootElement,
                           "Key",
                           Forms::Selection::Ids::fixed,
                           QObject::tr("key"),
                           QObject::tr("keys"),
                           QObject::tr("Clear"),
                           false};
    return KIND;
}

std::vector<RecordId> KeyRecords::getIds() const
{
    std::vector<Id> ids;
    for (const PlannedKey& key : KeyboardPlan::getKeys()) ids.push_back(idOf(withModifiers(key.code, modifiers)));
    return ids;
}

QString KeyRecords::describe(Id id) const
{
    const ButtonConfiguration* const button = find(id);
    const QString name = textOf(keyOf(id));
    return button == nullptr || button->isEmpty() ? QObject::tr("%1: does nothing.").arg(name)
                                                  : name + '\n' + Forms::FunctionCaption::describe(*button);
}

QString KeyRecords::nameOf(Id id) const { return getKind().one + ' ' + textOf(keyOf(id)); }

std::vector<Forms::FormField> KeyRecords::fieldsOf(Id id)
{
    Forms::FieldMaker make(getLists());
    make.addSwitch(QObject::tr("Global"), {[this, id] {
                                               const KeyConfiguration* const key = keys.findElement(keyOf(id));
                                               return key == nullptr || key->global;
                                           },
                                           [this, id](bool on) { keyAt(id).global = on; }});
    return make.take();
}

std::vector<RecordEdit> KeyRecords::makeAdditions(std::vector<Fields> added, const Forms::Selection& selection) const
{
    std::vector<Id> targets = selection.getTargets(added.size());
    if (targets.empty())
        for (Fields& fields : added) targets.push_back(idOf(Key::fromXmlString(RecordFields::valueOf(fields, "id"))));
    std::vector<RecordEdit> edits;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        Fields fields = added[i % added.size()];
        RecordFields::valueOf(fields, "id") = keyOf(targets[i]).toXmlString();
        edits.push_back({.kind = RecordEdit::Kind::add, .id = targets[i], .fields = std::move(fields)});
    }
    return edits;
}

std::vector<RecordEdit> KeyRecords::makeRemovals(const std::vector<Id>& removed) const
{
    std::vector<RecordEdit> edits;
    for (const Id id : removed)
        if (find(id) != nullptr) edits.push_back({.id = id, .fields = {{"global", "true"}, {"<Function>", ""}}});
    return edits;
}
}  // namespace Gui::ComputerInput
