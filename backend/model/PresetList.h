#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// An entry of a list of presets.
struct PresetEntry {
    std::string name;    ///< the file name, without folder and extension
    bool merge = false;  ///< loading adds to the present content instead of replacing it

    bool operator==(const PresetEntry&) const = default;
};

/// The presets of one section, sorted by the bytes of their names, each name once.
class ORV_API PresetList
{
public:
    const std::vector<PresetEntry>& getEntries() const { return entries; }

    /// The entry of exactly that name, or null. Valid until the list changes.
    const PresetEntry* find(std::string_view name) const;

    /// Adds an entry; a present one of that name gets the new `merge`.
    void add(PresetEntry entry);

    /// Ignored if there is no such entry.
    void remove(std::string name);

    /// Renames an entry; one that has the new name already is replaced.
    void rename(std::string_view oldName, std::string newName);

    void clear() { entries.clear(); }

private:
    std::vector<PresetEntry> entries;
};
}  // namespace Backend
