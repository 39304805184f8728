#pragma once

#include <string>

#include "backend/model/PresetList.h"

namespace Gui::Preset
{
/// A section's presets as its screen has them: its own copy of the list, which changes at once; the files follow on the
/// backend's thread. Names are trimmed and valid, see `Backend::isValidFileName`. The GUI thread.
class PresetGuiOwner
{
public:
    virtual ~PresetGuiOwner() = default;

    /// Saves what the section is now, or of it what is selected, in place of a preset of that name.
    virtual void addPreset(const std::string& name, bool selectedOnly) = 0;
    /// A preset that has the new name already is replaced.
    virtual void renamePreset(const std::string& oldName, const std::string& newName) = 0;
    virtual void deletePreset(const std::string& name) = 0;
    virtual const Backend::PresetList& getPresetList() const = 0;

    /// Whether there is anything selected that could be saved alone.
    virtual bool hasSelection() const = 0;
};
}  // namespace Gui::Preset
