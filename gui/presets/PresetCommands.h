#pragma once

#include <functional>
#include <string>
#include <vector>

#include "backend/model/Edit.h"
#include "backend/model/PresetSections.h"

class QString;

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Preset
{
/// The commands of a section's presets, which post to the backend. The GUI thread.
struct PresetCommands {
    /// An edit, which can be undone.
    std::function<void(const std::string& name)> load;
    /// Saves the records alone, to be added when they are loaded, or without records the whole section. Joysticks are
    /// always saved whole.
    std::function<void(const std::string& name, const std::vector<Backend::RecordId>& records)> save;
    std::function<void(const std::string& oldName, const std::string& newName)> rename;
    std::function<void(const std::string& name)> remove;
};

/// `gui` must outlive them.
PresetCommands commandsOf(OrvGuiIF& gui, const Backend::PresetSection& section);

/// "Preset of the keys".
QString nameOf(const Backend::PresetSection& section);
}  // namespace Gui::Preset
