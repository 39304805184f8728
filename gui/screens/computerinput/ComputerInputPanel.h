#pragma once

#include <string>
#include <vector>

#include "backend/model/KeyConfigurationMap.h"
#include "backend/model/ZoneMap.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/Panel.h"
#include "gui/screens/computerinput/ComputerInputGuiMessageManager.h"
#include "gui/screens/computerinput/KeyRecords.h"

class QCheckBox;
class QPushButton;

namespace Gui
{
class OrvGuiIF;

namespace Preset
{
class SectionRow;
class PresetGuiOwner;
}  // namespace Preset
}  // namespace Gui

namespace Gui::ComputerInput
{
class ComputerKeyboardCtl;
class KeySettings;

/// The screen of the computer's keyboard: what each key does, and which are down; beneath it, what the selected keys do
/// is edited. It shows its own copy of the bindings.
class ComputerInputPanel final : public Panel
{
public:
    ComputerInputPanel(OrvGuiIF& owner, Panel* around);

    ComputerKeyboardCtl& getKeyboard() { return *keyboard; }
    Preset::PresetGuiOwner& getPresets();
    /// Whether the key does something.
    bool isBound(const Key& key) const;
    KeyRecords& getRecords() { return records; }

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
    void makeEditing();
    void fit();
    void showModifiers(const Key& modifiers);
    void showReported();

    OrvGuiIF& gui;
    Forms::FieldLists lists;
    KeyRecords records;
    Forms::RecordEditor editor;
    Backend::ComputerInput::KeyConfigurationMap reported;  // the records follow it when all edits are acknowledged
    Backend::Zones::ZoneMap zones;
    ComputerInputGuiMessageManager messages;
    ComputerKeyboardCtl* keyboard;
    Preset::SectionRow* row = nullptr;
    QCheckBox* useModifiers = nullptr;
    QPushButton* editButton = nullptr;
    KeySettings* settings = nullptr;
};
}  // namespace Gui::ComputerInput
