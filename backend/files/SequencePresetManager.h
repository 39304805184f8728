#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"

namespace Backend::SequenceManagement
{
struct SequenceSetting;

/// The sequence of the preset of that name: its nodes, none if the file cannot be read. No name, and "Off", give no
/// sequence.
ORV_API SequenceSetting sequenceFromPreset(std::string_view name);
/// Reads the nodes of the preset that a setting names; a setting without one stays as it is.
ORV_API void loadSequencePreset(SequenceSetting& setting);

/// The names of the sequences in the user's folder, by their bytes, each once.
using SequencePresetList = std::vector<std::string>;

/// The sequences that stand by themselves: files "NAME.seq" in the data folder's "Sequences", each an XML document with
/// the text of one sequence. The list is read once, at the start. A name that would leave the folder names nothing.
/// No operation reports an error; what could not be done is written to the debug stream. Its owner's thread.
class ORV_API SequencePresetManager
{
public:
    /// Reads the list from the folder, every file whatever its extension. Where there is no folder it first becomes a
    /// copy of the factory's.
    void load();

    const SequencePresetList& getList() const { return list; }
    bool exists(std::string_view name) const { return indexOf(name) >= 0; }
    /// The place of exactly that name in the list, or -1.
    int indexOf(std::string_view name) const;

    /// Writes the sequence of that text (see `parseSequence`) in place of the one of that name, whole or not at all,
    /// and lists it. False, and nothing changed, if the name is no valid one or the file cannot be written.
    bool addPreset(std::string_view name, std::string_view text);

    /// Only if the old name is there and the new one, which must be a valid one, is not.
    void renamePreset(std::string_view oldName, std::string_view newName);

    /// Removes a listed preset, entry and file.
    void deletePreset(std::string_view name);

    /// The file of a name, existing or not; empty if the name would leave the folder.
    static std::string getPresetPath(std::string_view name);

private:
    void insert(std::string name);

    SequencePresetList list;
};
}  // namespace Backend::SequenceManagement
