#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "backend/model/Edit.h"
#include "backend/xml/XmlElement.h"
#include "platform/Export.h"

namespace Backend
{
/// What the window can edit: records with ids and, as text, the fields that a program holds. Nothing is published
/// before `publishRecords`. The backend thread's.
class Records
{
public:
    virtual ~Records() = default;

    virtual std::vector<RecordId> getRecordIds() const = 0;
    /// The element of a record as a program holds it, with any indentation; empty if there is none.
    virtual std::string writeRecord(RecordId id) const = 0;

    // The tag of `element` is not read. An id that the section cannot have is ignored.

    /// Of a present record. What a program does not hold stays.
    virtual void replaceRecord(RecordId id, const XmlElement& element) = 0;
    virtual void addRecord(RecordId id, const XmlElement& element) = 0;
    virtual void removeRecord(RecordId id) = 0;

    /// Sends what was changed to what plays it and to the window.
    virtual void publishRecords() = 0;
};

/// A field before and after an edit.
struct FieldChange {
    std::string name;
    std::string before;
    std::string after;
};

/// What an edit did to a record: those fields that have other values since. A record that was added or removed has all
/// of its fields.
struct RecordChange {
    std::string section;
    RecordEdit::Kind kind = RecordEdit::Kind::change;
    RecordId id = 0;
    std::vector<FieldChange> fields{};

    RecordChange reversed() const;
};
using RecordChanges = std::vector<RecordChange>;

namespace RecordEditing
{
/// The fields of all records of a section.
using Snapshot = std::map<RecordId, Fields>;

ORV_API Snapshot takeSnapshot(const Records& records);

/// What leads from one snapshot of a section to another.
ORV_API RecordChanges differences(std::string_view section, const Snapshot& before, const Snapshot& after);

/// Executes an edit of a record and returns what it changed.
ORV_API RecordChanges edit(Records& records, std::string_view section, const RecordEdit& edit);

/// Executes a change again: sets its fields, and leaves those that it does not have as they are now.
ORV_API void apply(Records& records, const RecordChange& change);
}  // namespace RecordEditing
}  // namespace Backend
