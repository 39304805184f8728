#include "backend/sections/Records.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"

namespace Backend
{
namespace
{
using Kind = RecordEdit::Kind;

bool isElementField(std::string_view name) { return name.starts_with('<'); }

std::string& valueIn(Fields& fields, std::string_view name)
{
    const auto found = std::ranges::find(fields, name, &Field::name);
    if (found != fields.end()) return found->value;
    fields.push_back({.name = std::string(name), .value = ""});
    return fields.back().value;
}

Fields readFields(const std::string& text)
{
    Fields fields;
    if (text.empty()) return fields;
    const XmlElement element = XmlDocument(text, XmlDocument::Source::text).getRoot();
    for (auto& [name, value] : element.getAttributes()) fields.push_back({std::move(name), std::move(value)});
    forEachElement(element,
                   [&](const XmlElement& child) { valueIn(fields, xmlStartTag(child.getTagName())) += child.toXml(); });
    return fields;
}

XmlElement writeFields(const Fields& fields)
{
    std::string text = xmlOpenTag("Record");
    std::string children;
    for (const auto& [name, value] : fields) {
        if (isElementField(name))
            children += value;
        else
            text += xmlStringAttribute(name, value);
    }
    return XmlDocument(text + xmlCloseOpen() + children + xmlEndTag("Record"), XmlDocument::Source::text).getRoot();
}

const Field* findField(const Fields& fields, std::string_view name)
{
    const auto found = std::ranges::find(fields, name, &Field::name);
    return found == fields.end() ? nullptr : &*found;
}

std::vector<FieldChange> differingFields(const Fields& before, const Fields& after)
{
    std::vector<FieldChange> changes;
    for (const auto& [name, value] : after) {
        const Field* const old = findField(before, name);
        if (old == nullptr || old->value != value) changes.push_back({name, old == nullptr ? "" : old->value, value});
    }
    for (const auto& [name, value] : before)
        if (findField(after, name) == nullptr) changes.push_back({name, value, ""});
    return changes;
}

/// Sets the fields of a record, and leaves the others. Fields that are no XML change nothing.
void setFields(Records& records, RecordId id, const Fields& changed)
{
    Fields fields = readFields(records.writeRecord(id));
    if (fields.empty()) return;
    for (const auto& [name, value] : changed) valueIn(fields, name) = value;
    if (const XmlElement element = writeFields(fields); element.hasElement()) records.replaceRecord(id, element);
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
    for (const RecordId id : records.getRecordIds()) snapshot.emplace(id, readFields(records.writeRecord(id)));
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
    const Fields before = readFields(records.writeRecord(edit.id));
    if (edit.kind == Kind::change) {
        setFields(records, edit.id, edit.fields);
    } else if (edit.kind == Kind::remove) {
        records.removeRecord(edit.id);
    } else {
        Fields fields = edit.copyOf ? readFields(records.writeRecord(*edit.copyOf)) : Fields{};
        for (const auto& [name, value] : edit.fields) valueIn(fields, name) = value;
        if (const XmlElement element = writeFields(fields); element.hasElement()) records.addRecord(edit.id, element);
    }
    // A record that is added in the place of another one changes that one.
    const std::size_t newSize = records.getRecordIds().size();
    const Kind kind = newSize > size ? Kind::add : newSize < size ? Kind::remove : Kind::change;
    RecordChange change{std::string(section), kind, edit.id,
                        differingFields(kind == Kind::add ? Fields{} : before,
                                        kind == Kind::remove ? Fields{} : readFields(records.writeRecord(edit.id)))};
    return kind == Kind::change && change.fields.empty() ? RecordChanges{} : RecordChanges{std::move(change)};
}

void apply(Records& records, const RecordChange& change)
{
    const Fields fields = valuesAfter(change);
    switch (change.kind) {
        case Kind::change:
            return setFields(records, change.id, fields);
        case Kind::add:
            return records.addRecord(change.id, writeFields(fields));
        case Kind::remove:
            return records.removeRecord(change.id);
    }
}
}  // namespace RecordEditing
}  // namespace Backend
