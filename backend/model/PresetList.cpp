#include "backend/model/PresetList.h"

#include <algorithm>
#include <utility>

namespace Backend
{
const PresetEntry* PresetList::find(std::string_view name) const
{
    const auto entry = std::ranges::find(entries, name, &PresetEntry::name);
    return entry == entries.end() ? nullptr : &*entry;
}

void PresetList::add(PresetEntry entry)
{
    remove(entry.name);
    const auto place = std::ranges::lower_bound(entries, entry.name, {}, &PresetEntry::name);
    entries.insert(place, std::move(entry));
}

void PresetList::remove(std::string name)
{
    std::erase_if(entries, [&](const PresetEntry& entry) { return entry.name == name; });
}

void PresetList::rename(std::string_view oldName, std::string newName)
{
    const PresetEntry* old = find(oldName);
    if (old == nullptr) return;
    PresetEntry entry{std::move(newName), old->merge};
    remove(old->name);
    add(std::move(entry));
}
}  // namespace Backend
