#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "backend/model/PresetList.h"
#include "backend/model/PresetSections.h"
#include "platform/Export.h"

namespace Backend
{
/// An attempt to save, rename or remove a preset.
struct PresetChange {
    bool done = true;       ///< false if the folder could not be changed; the list has not changed then
    std::string oldName{};  ///< the preset that was renamed or removed
    std::string newName{};  ///< its new name, or that of the preset that was saved
};

/// The presets of one section: files "NAME.pst" in one folder of the data folder, each an XML document whose root is
/// the section's element, and the list of them. The list is read once, at the start. A name that would lead out of the
/// folder is refused. Failures are written to the debug stream. The backend thread's.
class ORV_API PresetManager
{
public:
    explicit PresetManager(const PresetSection& presetSection) : section(presetSection) {}

    /// Called after each attempt to save, rename or remove.
    std::function<void(const PresetChange& change)> onChange;

    const PresetSection& getSection() const { return section; }
    const PresetList& getList() const { return list; }

    /// Reads the list from the folder, with files of any extension. A folder that does not exist is first made as a
    /// copy of the factory content.
    void refresh();

    /// The folder of the presets, empty if there is no data folder.
    std::string getFolder() const;

    /// The path of a preset's file, existing or not; empty if the name would lead out of the folder.
    std::string getPresetPath(std::string_view name) const;

    /// The path of a preset that can be loaded, empty if there is none.
    std::string findPreset(std::string_view name) const;

    /// Appends the section's element, with its line end, to `text`.
    using ElementWriter = std::function<void(std::string& text)>;

    /// Writes a preset as a whole, in place of one of the same name, and adds it to the list. Blanks on both sides of
    /// the name are removed. False, and nothing is changed, if the name is not valid or the file cannot be written.
    bool save(std::string_view name, const ElementWriter& writeElement);

    /// Renames a preset; one that has the new name already is replaced. False, and nothing is changed, if it is not in
    /// the list, the new name is not valid or the file cannot be renamed.
    bool rename(std::string_view oldName, std::string_view newName);

    /// Removes a preset's entry and file. False, and nothing is changed, if it is not in the list or the file cannot be
    /// removed.
    bool remove(std::string_view name);

private:
    bool changed(const PresetChange& change) const;

    PresetSection section;
    PresetList list;
};
}  // namespace Backend
