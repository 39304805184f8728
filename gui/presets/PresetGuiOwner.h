#pragma once

#include <string>

#include "backend/model/PresetList.h"

namespace Gui::Preset
{
/// A section's presets on its screen: a copy of the list, which changes at once; the backend writes the files later.
/// Names are trimmed and valid, see `Backend::isValidFileName`. The GUI thread.
class PresetGuiOwner
{
public:
    virtual ~PresetGuiOwner() = default;

    /// Saves the section, or its selected rows alone, in place of a preset of that name.
    virtual void addPreset(const std::string& name, bool selectedOnly) = 0;
    /// A preset that has the new name already is replaced.
    virtual void renamePreset(const std::string& oldName, const std::string& newName) = 0;
    virtual void deletePreset(const std::string& name) = 0;
    virtual const Backend::PresetList& getPresetList() const = 0;
    /// The file name of a preset with its folder in the data folder, "Layer Presets/Organ.pst".
    virtual std::string fileOf(const std::string& name) const = 0;

    /// Whether rows are selected that can be saved alone.
    virtual bool hasSelection() const = 0;
};
}  // namespace Gui::Preset
