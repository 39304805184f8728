#include "backend/model/SetList.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "backend/xml/XmlWriter.h"

namespace Backend
{
namespace
{
constexpr const char* ROOT = "SetList";
constexpr const char* ENTRY = "Entry";

bool contains(std::span<const int> ids, int id) { return std::ranges::find(ids, id) != ids.end(); }

/// A line break would end the line of the entry in the file, and in the window.
std::string onOneLine(std::string text)
{
    std::ranges::replace_if(
        text, [](unsigned char letter) { return letter < ' '; }, ' ');
    return text;
}
}  // namespace

// --- where it is

const SetEntry* SetList::find(int id) const
{
    const int row = rowOf(id);
    return row < 0 ? nullptr : &entries[static_cast<std::size_t>(row)];
}

int SetList::rowOf(int id) const
{
    const auto found = std::ranges::find(entries, id, &SetEntry::id);
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

bool SetList::leads() const { return on && !std::ranges::all_of(entries, &SetEntry::isMissing); }

const SetEntry* SetList::findNext() const
{
    const auto next = std::find_if(entries.begin() + rowOf(current) + 1, entries.end(),
                                   [](const SetEntry& entry) { return !entry.isMissing; });
    return next == entries.end() ? nullptr : &*next;
}

const SetEntry* SetList::findPrevious(int program) const
{
    const SetEntry* const now = find(current);
    if (now == nullptr || (!now->isMissing && now->number != program)) return now;
    for (auto row = static_cast<std::size_t>(rowOf(current)); row-- > 0;)
        if (!entries[row].isMissing) return &entries[row];
    return nullptr;
}

void SetList::follow(int program)
{
    const auto from = entries.begin() + std::max(0, rowOf(current));
    const auto plays = [program](const SetEntry& entry) { return !entry.isMissing && entry.number == program; };
    if (const auto next = std::find_if(from, entries.end(), plays); next != entries.end())
        current = next->id;
    else if (const auto last = std::find_if(std::make_reverse_iterator(from), entries.rend(), plays);
             last != entries.rend())
        current = last->id;
}

// --- the programs of the bank

void SetList::resolve(std::span<const std::string> programNames)
{
    for (SetEntry& entry : entries) {
        const auto number = static_cast<std::size_t>(entry.number);
        entry.isMissing = false;
        if (entry.number >= 0 && number < programNames.size() && programNames[number] == entry.name) continue;
        const auto found = std::ranges::find(programNames, entry.name);
        entry.isMissing = found == programNames.end();
        if (!entry.isMissing) entry.number = static_cast<int>(found - programNames.begin());
    }
}

void SetList::rearrange(std::span<const int> numbers, std::span<const std::string> programNames)
{
    for (SetEntry& entry : entries) {
        const auto place = std::ranges::find(numbers, entry.number);
        if (entry.isMissing || place == numbers.end()) continue;
        entry.number = static_cast<int>(place - numbers.begin());
        entry.name = programNames[static_cast<std::size_t>(entry.number)];
    }
    resolve(programNames);
}

void SetList::rename(int program, const std::string& name)
{
    for (SetEntry& entry : entries)
        if (!entry.isMissing && entry.number == program) entry.name = name;
}

// --- edits

bool SetList::edit(const SetListEdit& edit, std::span<const std::string> programNames)
{
    const std::vector<SetEntry> old = entries;
    switch (edit.kind) {
        case SetListEdit::Kind::add: {
            std::vector<SetEntry> added;
            for (const int number : edit.items)
                if (number >= 0 && static_cast<std::size_t>(number) < programNames.size())
                    added.push_back({.id = ++lastId,
                                     .number = number,
                                     .name = programNames[static_cast<std::size_t>(number)],
                                     .note = onOneLine(edit.note)});
            add(std::move(added), edit.before);
            break;
        }
        case SetListEdit::Kind::move:
            if (!contains(edit.items, edit.before)) add(take(edit.items), edit.before);
            break;
        case SetListEdit::Kind::remove: {
            // The next entry is then what followed the current one.
            while (contains(edit.items, current)) {
                const int row = rowOf(current);
                current = row > 0 ? entries[static_cast<std::size_t>(row) - 1].id : NONE;
            }
            take(edit.items);
            break;
        }
        case SetListEdit::Kind::note:
            for (SetEntry& entry : entries)
                if (contains(edit.items, entry.id)) entry.note = onOneLine(edit.note);
            break;
    }
    return entries != old;
}

void SetList::add(std::vector<SetEntry> added, int before)
{
    const int row = rowOf(before);
    entries.insert(row < 0 ? entries.end() : entries.begin() + row, std::make_move_iterator(added.begin()),
                   std::make_move_iterator(added.end()));
}

std::vector<SetEntry> SetList::take(std::span<const int> ids)
{
    std::vector<SetEntry> taken;
    for (const SetEntry& entry : entries)
        if (contains(ids, entry.id)) taken.push_back(entry);
    std::erase_if(entries, [&](const SetEntry& entry) { return contains(ids, entry.id); });
    return taken;
}

/// An entry that is not there any more gives its place to the nearest one before it that is.
void SetList::swapEntries(SetList& other)
{
    const std::vector<SetEntry> before = entries;
    int row = rowOf(current);
    entries.swap(other.entries);
    while (row >= 0 && find(before[static_cast<std::size_t>(row)].id) == nullptr) --row;
    current = row < 0 ? NONE : before[static_cast<std::size_t>(row)].id;
}

// --- the file

bool SetList::readXml(const XmlElement& root)
{
    *this = {};
    if (root.getTagName() != ROOT) return false;
    on = root.getBoolAttribute("on", false);
    forEachElement(root, [this](const XmlElement& element) {
        if (element.getTagName() == ENTRY)
            entries.push_back({.id = ++lastId,
                               .number = element.getIntAttribute("number", -1),
                               .name = element.getAttribute("name"),
                               .note = element.getAttribute("note")});
    });
    const int row = root.getIntAttribute("position", -1);
    if (row >= 0 && row < static_cast<int>(entries.size())) current = entries[static_cast<std::size_t>(row)].id;
    return true;
}

std::string SetList::toXml() const
{
    std::string text = xmlHeader() + "\n\n" + xmlOpenTag(ROOT) + xmlBoolAttribute("on", on) +
                       xmlIntAttribute("position", rowOf(current)) + xmlCloseOpen() + "\n";
    for (const SetEntry& entry : entries)
        text += "\t" + xmlOpenTag(ENTRY) + xmlIntAttribute("number", entry.number) +
                xmlStringAttribute("name", entry.name) + xmlStringAttribute("note", entry.note) + xmlCloseEmpty() +
                "\n";
    return text + xmlEndTag(ROOT) + "\n";
}
}  // namespace Backend
