#include "backend/sections/Records.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "backend/model/RecordFields.h"
#include "backend/xml/XmlDocument.h"

namespace Backend
{
namespace
{
using Kind = RecordEdit::Kind;

XmlElement elementOf(const Fields& fields)
{
    return XmlDocument(RecordFields::write("Record", fields), XmlDocument::Source::text).getRoot();
}

std::string valueIn(const Fields& fields, std::string_view name)
{
    const auto found = std::ranges::find(fields, name, &Field::name);
    return found == fields.end() ? "" : found->value;
}

std::vector<FieldChange> differingFields(const Fields& before, const Fields& after)
{
    std::vector<FieldChange> changes;
    for (auto& [name, value] : RecordFields::differing(before, after))
        changes.push_back({name, valueIn(before, name), value});
    return changes;
}

/// Sets the fields of a record, and leaves the others. Fields that are no XML change nothing.
void setFields(Records& records, RecordId id, const Fields& changed)
{
    Fields fields = RecordFields::read(records.writeRecord(id));
    if (fields.empty()) return;
    for (const auto& [name, value] : changed) RecordFields::valueOf(fields, name) = value;
    if (const XmlElement element = elementOf(fields); element.hasElement()) records.replaceRecord(id, element);
}

Fields valuesAfter(const RecordChange& change)
{
    Fields fields;
    for (const FieldChange& field : change.fields) fields.push_back({field.name, field.after});
    return fields;
}
}  // namespace

RecordChange RecordChange::reversed() const
{
    RecordChange change = *this;
    if (kind != Kind::change) change.kind = kind == Kind::add ? Kind::remove : Kind::add;
    for (FieldChange& field : change.fields) std::swap(field.before, field.after);
    return change;
}

namespace RecordEditing
{
Snapshot takeSnapshot(const Records& records)
{
    Snapshot snapshot;
    for (const RecordId id : records.getRecordIds()) snapshot.emplace(id, RecordFields::read(records.writeRecord(id)));
    return snapshot;
}

/// Removed are first the records with the highest ids, added those with the lowest, because the ids of layers are
/// indices.
RecordChanges differences(std::string_view section, const Snapshot& before, const Snapshot& after)
{
    RecordChanges removed, others;
    const auto add = [&](RecordChanges& changes, Kind kind, RecordId id, std::vector<FieldChange> fields) {
        if (!fields.empty()) changes.push_back({std::string(section), kind, id, std::move(fields)});
    };
    for (const auto& [id, fields] : before)
        if (!after.contains(id)) add(removed, Kind::remove, id, differingFields(fields, {}));
    std::ranges::reverse(removed);
    for (const auto& [id, fields] : after) {
        const auto old = before.find(id);
        const bool isNew = old == before.end();
        add(others, isNew ? Kind::add : Kind::change, id, differingFields(isNew ? Fields{} : old->second, fields));
    }
    removed.insert(removed.end(), std::make_move_iterator(others.begin()), std::make_move_iterator(others.end()));
    return removed;
}

RecordChanges edit(Records& records, std::string_view section, const RecordEdit& edit)
{
    const std::size_t size = records.getRecordIds().size();
    const Fields before = RecordFields::read(records.writeRecord(edit.id));
    if (edit.kind == Kind::change) {
        setFields(records, edit.id, edit.fields);
    } else if (edit.kind == Kind::remove) {
        records.removeRecord(edit.id);
    } else {
        Fields fields = edit.copyOf ? RecordFields::read(records.writeRecord(*edit.copyOf)) : Fields{};
        for (const auto& [name, value] : edit.fields) RecordFields::valueOf(fields, name) = value;
        if (const XmlElement element = elementOf(fields); element.hasElement()) records.addRecord(edit.id, element);
    }
    // A record that is added in the place of another one changes that one.
    const std::size_t newSize = records.getRecordIds().size();
    const Kind kind = newSize > size ? Kind::add : newSize < size ? Kind::remove : Kind::change;
    RecordChange change{
        std::string(section), kind, edit.id,
        differingFields(kind == Kind::add ? Fields{} : before,
                        kind == Kind::remove ? Fields{} : RecordFields::read(records.writeRecord(edit.id)))};
    return kind == Kind::change && change.fields.empty() ? RecordChanges{} : RecordChanges{std::move(change)};
}

void apply(Records& records, const RecordChange& change)
{
    const Fields fields = valuesAfter(change);
    switch (change.kind) {
        case Kind::change:
            return setFields(records, change.id, fields);
        case Kind::add:
            return records.addRecord(change.id, elementOf(fields));
        case Kind::remove:
            return records.removeRecord(change.id);
    }
}
}  // namespace RecordEditing
}  // namespace Backend
