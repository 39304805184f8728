#include "gui/screens/computerinput/ComputerInputPanel.h"

#include <QCheckBox>
#include <QLabel>
#include <QSignalBlocker>

#include "api/OrvGuiIF.h"
#include "backend/model/PresetSections.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/Properties.h"
#include "gui/presets/PresetCtl.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"

namespace Gui::ComputerInput
{
using Backend::ComputerInput::KeyConfiguration;
using Backend::ComputerInput::KeyConfigurationMap;

namespace
{
constexpr int WIDTH = 960;
constexpr int HEIGHT = 34 + 238 + 8;
constexpr int MARGIN = 8;
constexpr int ROW = 22;
constexpr QRect PRESET_LABEL(MARGIN, 4, 50, ROW);
constexpr QRect PRESET_NAME(MARGIN + 50, 4, 400, ROW);
constexpr QRect USE_MODIFIERS(730, 4, 222, ROW);
constexpr int KEYBOARD_TOP = 34;
}  // namespace

ComputerInputPanel::ComputerInputPanel(OrvGuiIF& owner, Panel* around)
    : Panel(around), gui(owner), messages(*this), keyboard(new ComputerKeyboardCtl(owner, keys, zones, this))
{
    makeTopRow();
    setPanelSize({WIDTH, HEIGHT});
    scaleChanged();
    gui.getGuiMessageManagerMaster().addMessageManager(&messages);
}

void ComputerInputPanel::scaleChanged()
{
    keyboard->rescale();
    keyboard->move((getGdi().px(WIDTH) - keyboard->width()) / 2, getGdi().px(KEYBOARD_TOP));
}

void ComputerInputPanel::makeTopRow()
{
    auto* const label = new QLabel(tr("Preset:"), this);
    place(*label, PRESET_LABEL);
    presets = new Preset::PresetCtl(gui, Backend::PresetSections::COMPUTER_INPUT, this);
    place(*presets, PRESET_NAME);

    useModifiers = new QCheckBox(tr("Use modifiers on key up"), this);
    place(*useModifiers, USE_MODIFIERS);
    useModifiers->setLayoutDirection(Qt::RightToLeft);  // the check box is at the right edge of the panel
    Property::setHelp(*useModifiers, tr("When off, shift / ctrl / alt / win modifier state is ignored for key up."));
    connect(useModifiers, &QCheckBox::clicked, [this](bool on) {
        gui.getEdits().change(Backend::PresetSections::COMPUTER_INPUT.rootElement, Backend::SECTION_RECORD,
                              {"useKeyUpMod", on ? "true" : "false"}, tr("use modifiers on key up").toStdString(),
                              gui.getEdits().beginGesture());
    });
}

bool ComputerInputPanel::isBound(const Key& key) const
{
    const KeyConfiguration* const configuration = keys.findElement(key);
    return configuration != nullptr && !configuration->isEmpty();
}

// --- changes that the backend reports

void ComputerInputPanel::handleKeyConfigurations(const std::vector<KeyConfiguration>& configurations)
{
    for (const KeyConfiguration& configuration : configurations) keys.put(configuration);
    showKeys();
}

void ComputerInputPanel::handleComputerInput(bool useKeyUpMod, KeyConfigurationMap newKeys)
{
    keys = std::move(newKeys);
    const QSignalBlocker quiet(useModifiers);
    useModifiers->setChecked(useKeyUpMod);
    showKeys();
}

void ComputerInputPanel::handleComputerInputChanged(const std::string& preset) { presets->showCurrent(preset); }

void ComputerInputPanel::handlePresetLoaded() { keyboard->showConfigurations(); }

void ComputerInputPanel::handleZones(const Backend::Zones::ZoneMap& newZones)
{
    zones = newZones;
    keyboard->showConfigurations();
}

void ComputerInputPanel::handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose)
{
    auto* const changed = zones.findElement(zone);
    if (changed == nullptr) return;
    changed->transpose = static_cast<std::int8_t>(transpose);
    keyboard->showConfigurations();
}

Preset::PresetGuiOwner& ComputerInputPanel::getPresets() { return *presets; }

void ComputerInputPanel::showKeys()
{
    keyboard->showConfigurations();
    gui.handleKeysChanged(keys);
}
}  // namespace Gui::ComputerInput
