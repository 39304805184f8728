#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"

namespace Backend::SequenceManagement
{
struct SequenceSetting;

/// The sequence of the preset of that name, without nodes if its file cannot be read. An empty name, and "Off", give
/// no sequence.
ORV_API SequenceSetting sequenceFromPreset(std::string_view name);
/// Reads the nodes of the preset that `setting` names; without a name nothing changes.
ORV_API void loadSequencePreset(SequenceSetting& setting);

/// The names of the sequence presets in the data folder, sorted by their bytes, each once.
using SequencePresetList = std::vector<std::string>;

/// The presets of sequences: files "NAME.seq" in the folder "Sequences" of the data folder, each an XML document with
/// the text of one sequence, and the list of them. The list is read once, at the start. A name that would lead out of
/// the folder is refused. Failures are written to the debug stream. The thread of its owner.
class ORV_API SequencePresetManager
{
public:
    /// Reads the list from the folder, with files of any extension. A folder that does not exist is first made as a
    /// copy of the factory content.
    void load();

    const SequencePresetList& getList() const { return list; }
    bool exists(std::string_view name) const { return indexOf(name) >= 0; }
    /// The index of exactly that name in the list, or -1.
    int indexOf(std::string_view name) const;

    /// Writes a sequence, given as text (see `parseSequence`), as a whole, in place of one of the same name, and adds
    /// it to the list. False, and nothing is changed, if the name is not valid or the file cannot be written.
    bool addPreset(std::string_view name, std::string_view text);

    /// Renames a preset, if it is in the list, and the new name is valid and not in the list. False if nothing changed.
    bool renamePreset(std::string_view oldName, std::string_view newName);

    /// Removes a listed preset, entry and file. False, and it stays listed, if the file cannot be removed.
    bool deletePreset(std::string_view name);

    /// The path of a preset's file, existing or not; empty if the name would lead out of the folder.
    static std::string getPresetPath(std::string_view name);

private:
    void insert(std::string name);

    SequencePresetList list;
};
}  // namespace Backend::SequenceManagement
