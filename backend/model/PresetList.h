#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// A preset as a list shows it.
struct PresetEntry {
    std::string name;    ///< of its file, without folder and extension
    bool merge = false;  ///< whether loading adds to what is there instead of replacing it

    bool operator==(const PresetEntry&) const = default;
};

/// The presets of one section, sorted by the bytes of their names, each name once.
class ORV_API PresetList
{
public:
    const std::vector<PresetEntry>& getEntries() const { return entries; }

    /// The entry of exactly that name, or null. It lives until the list changes.
    const PresetEntry* find(std::string_view name) const;

    /// An entry of that name takes over the new one's `merge`.
    void add(PresetEntry entry);

    /// Nothing happens if there is no such entry.
    void remove(std::string name);

    /// The entry of the old name gets the new one, in place of an entry that has it.
    void rename(std::string_view oldName, std::string newName);

    void clear() { entries.clear(); }

private:
    std::vector<PresetEntry> entries;
};
}  // namespace Backend
