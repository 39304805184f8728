#pragma once

#include <string>
#include <vector>

#include "backend/model/KeyConfigurationMap.h"
#include "backend/model/ZoneMap.h"
#include "gui/framework/Panel.h"
#include "gui/screens/computerinput/ComputerInputGuiMessageManager.h"

class QCheckBox;

namespace Gui
{
class OrvGuiIF;

namespace Preset
{
class PresetCtl;
class PresetGuiOwner;
}  // namespace Preset
}  // namespace Gui

namespace Gui::ComputerInput
{
class ComputerKeyboardCtl;

/// The screen of the computer's keyboard: what each key does, and which are down. It shows its own copy of the
/// bindings.
class ComputerInputPanel final : public Panel
{
public:
    ComputerInputPanel(OrvGuiIF& owner, Panel* around);

    ComputerKeyboardCtl& getKeyboard() { return *keyboard; }
    Preset::PresetGuiOwner& getPresets();
    /// Whether the key does something.
    bool isBound(const Key& key) const;

    // Changes that the backend reports
    void handleKeyConfigurations(const std::vector<Backend::ComputerInput::KeyConfiguration>& configurations);
    void handleComputerInput(bool useKeyUpMod, Backend::ComputerInput::KeyConfigurationMap newKeys);
    /// The preset that the keys were loaded from; empty if none.
    void handleComputerInputChanged(const std::string& preset);
    void handlePresetLoaded();
    void handleZones(const Backend::Zones::ZoneMap& newZones);
    void handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose);

protected:
    void scaleChanged() override;

private:
    void makeTopRow();
    void showKeys();

    OrvGuiIF& gui;
    Backend::ComputerInput::KeyConfigurationMap keys;
    Backend::Zones::ZoneMap zones;
    ComputerInputGuiMessageManager messages;
    ComputerKeyboardCtl* keyboard;
    Preset::PresetCtl* presets = nullptr;
    QCheckBox* useModifiers = nullptr;
};
}  // namespace Gui::ComputerInput
