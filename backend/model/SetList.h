#pragma once

#include <span>
#include <string>
#include <vector>

#include "backend/xml/XmlElement.h"
#include "platform/Export.h"

namespace Backend
{
/// A program in a set list.
struct SetEntry {
    int id = 0;              ///< above 0, of this entry alone as long as the list is loaded; not stored
    int number = 0;          ///< of the program, from 0; if it is missing, the last one known
    std::string name{};      ///< of the program
    std::string note{};      ///< the user's, one line
    bool isMissing = false;  ///< the bank has no such program; not stored

    bool operator==(const SetEntry&) const = default;
};

/// A change of a set list by the user, one step of its history. What it names that is not there is ignored.
struct SetListEdit {
    enum class Kind {
        add,     ///< programs of the bank
        move,    ///< entries, which keep their order
        remove,  ///< entries
        note     ///< the entries get `note`
    };

    Kind kind = Kind::add;
    std::string name{};        ///< as the user reads it: "remove 2 entries"
    std::vector<int> items{};  ///< the ids of the entries; of `add`, the numbers of the programs
    int before = 0;            ///< the id of the entry before which they are put; 0 for the end
    std::string note{};
};

/// Whether the file of a set list was written.
enum class SetListWrite {
    written,
    changed,  ///< not, because another program has changed it
    failed
};

/// The order in which programs of a bank are played, with notes of the user. A program is found by its number and name,
/// else by its name; an entry without a program is skipped.
class ORV_API SetList
{
public:
    static constexpr int NONE = 0;  ///< the id of no entry

    const std::vector<SetEntry>& getEntries() const { return entries; }
    /// Null if there is none.
    const SetEntry* find(int id) const;
    /// The id of the entry that was played last; none before the first.
    int getCurrent() const { return current; }
    /// From 0; -1 for none.
    int rowOf(int id) const;

    /// On, and with a program to go to.
    bool leads() const;
    bool isOn() const { return on; }
    void setOn(bool isOnNow) { on = isOnNow; }

    /// The file is there but no set list: it is not replaced, so nothing can be edited.
    bool isBroken() const { return broken; }
    void setBroken() { broken = true; }

    /// The next entry with a program; null at the end.
    const SetEntry* findNext() const;
    /// The previous one. While another program than that of the current entry is loaded, the current entry.
    const SetEntry* findPrevious(int program) const;
    void setCurrent(int id) { current = id; }
    /// That program was loaded: the current entry is the next one that has it, from the current one on, else the last
    /// one before; the same as before if none has it.
    void follow(int program);

    /// Finds the programs of the entries among those of the bank.
    void resolve(std::span<const std::string> programNames);
    /// The programs have got other places: `numbers` are those that they had before, below 0 for new ones.
    void rearrange(std::span<const int> numbers, std::span<const std::string> programNames);
    /// A program of the bank has got another name.
    void rename(int program, const std::string& name);

    /// False if nothing was changed.
    bool edit(const SetListEdit& edit, std::span<const std::string> programNames);
    /// Exchanges the entries with those of another version of this list.
    void swapEntries(SetList& other);

    /// Replaces everything. False if it is no "SetList" element.
    bool readXml(const XmlElement& root);
    /// A whole document.
    std::string toXml() const;

    bool operator==(const SetList&) const = default;

private:
    void add(std::vector<SetEntry> added, int before);
    std::vector<SetEntry> take(std::span<const int> ids);

    std::vector<SetEntry> entries;
    int current = NONE;
    int lastId = NONE;
    bool on = false;
    bool broken = false;
};
}  // namespace Backend
