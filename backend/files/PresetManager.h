#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "backend/model/PresetList.h"
#include "backend/model/PresetSections.h"
#include "platform/Export.h"

namespace Backend
{
/// The presets of one section: files "NAME.pst" in one folder of the data folder, each an XML document whose root is
/// the section's element, and the list of them. The list is read once, at the start. A name that would leave the folder
/// names nothing. What could not be done is written to the debug stream. The backend thread's.
class ORV_API PresetManager
{
public:
    explicit PresetManager(const PresetSection& presetSection) : section(presetSection) {}

    /// Called after each save, renaming and removal that was asked for; `done` is false if the folder did not take it.
    std::function<void(bool done)> onChange;

    const PresetSection& getSection() const { return section; }
    const PresetList& getList() const { return list; }

    /// Reads the list from the folder, every file whatever its extension. Where there is no folder it first becomes a
    /// copy of the factory's.
    void refresh();

    /// The presets' folder, empty if there is no data folder.
    std::string getFolder() const;

    /// The file of a name, existing or not; empty if the name would leave the folder.
    std::string getPresetPath(std::string_view name) const;

    /// The file of a preset that can be loaded, or empty if there is none.
    std::string findPreset(std::string_view name) const;

    /// Appends the section's element, with its line end, to a text.
    using ElementWriter = std::function<void(std::string& text)>;

    /// Writes a preset in place of the one of that name, whole or not at all, and lists it. The name is stored without
    /// the blanks on both sides. False, and nothing changed, if the name is no valid one or the file cannot be written.
    bool save(std::string_view name, const ElementWriter& writeElement);

    /// Another name for a preset that is listed; one that has it already is replaced. False, and nothing changed, if it
    /// is not listed or the new name is no valid one.
    bool rename(std::string_view oldName, std::string_view newName);

    /// Removes a preset, entry and file. False if it is not listed.
    bool remove(std::string_view name);

private:
    void changed(bool done) const;

    PresetSection section;
    PresetList list;
};
}  // namespace Backend
