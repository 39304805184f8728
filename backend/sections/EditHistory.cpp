#include "backend/sections/EditHistory.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Backend
{
namespace
{
using Kind = RecordEdit::Kind;

FieldChange* findField(RecordChange& change, const std::string& name)
{
    const auto found = std::ranges::find(change.fields, name, &FieldChange::name);
    return found == change.fields.end() ? nullptr : &*found;
}

/// Adds later changes of the same record: a field keeps the value before the first of them.
void mergeFields(RecordChange& change, RecordChange& later)
{
    for (FieldChange& field : later.fields) {
        if (FieldChange* const present = findField(change, field.name))
            present->after = std::move(field.after);
        else
            change.fields.push_back(std::move(field));
    }
    std::erase_if(change.fields, [](const FieldChange& field) { return field.before == field.after; });
}

/// While records are added and removed, an id may mean one record before and another one after.
void merge(RecordChanges& changes, RecordChanges later)
{
    for (RecordChange& change : later) {
        const auto isOfSection = [&](const RecordChange& other) { return other.section == change.section; };
        const auto isSame = [&](const RecordChange& other) { return isOfSection(other) && other.id == change.id; };
        const bool movesIds =
            change.kind != Kind::change || std::ranges::any_of(changes, [&](const RecordChange& other) {
                return isOfSection(other) && other.kind != Kind::change;
            });
        const auto same = movesIds ? changes.end() : std::ranges::find_if(changes, isSame);
        if (same == changes.end())
            changes.push_back(std::move(change));
        else
            mergeFields(*same, change);
    }
    std::erase_if(changes,
                  [](const RecordChange& change) { return change.kind == Kind::change && change.fields.empty(); });
}
}  // namespace

void EditHistory::add(EditStep step)
{
    const bool goesOn = position > 0 && position == steps.size() && steps.back().gesture == step.gesture;
    steps.resize(position);
    if (goesOn) {
        merge(steps.back().changes, std::move(step.changes));
        steps.back().state = ++newest;
        if (steps.back().changes.empty()) steps.pop_back();
    } else {
        step.state = ++newest;
        steps.push_back(std::move(step));
    }
    position = steps.size();
}

void EditHistory::presetChanged(const std::string& section, const std::string& oldName, const std::string& newName)
{
    for (auto& [place, preset] : presets) {
        if (place.second != section) continue;
        if (preset.name == newName) preset.isEdited = true;
        if (preset.name == oldName) preset.name = newName;
    }
}

SectionPreset EditHistory::presetAfter(std::size_t count, const std::string& section) const
{
    bool isEdited = false;
    for (;; --count) {
        const auto preset = presets.find({stateAfter(count), section});
        if (preset != presets.end()) return {preset->second.name, isEdited || preset->second.isEdited};
        if (count == 0) return {"", isEdited};
        const auto isOfSection = [&](const RecordChange& change) { return change.section == section; };
        isEdited = isEdited || std::ranges::any_of(steps[count - 1].changes, isOfSection);
    }
}
}  // namespace Backend
