// The changes that the backend reports: each is passed to the screens that show it, if they are made.
#include "backend/files/RegistrySettings.h"
#include "gui/screens/cc/CcPanel.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"
#include "gui/screens/display/DisplayPanel.h"
#include "gui/screens/joystick/JoystickPanel.h"
#include "gui/screens/layers/LayerPanel.h"
#include "gui/screens/layers/MainPanel.h"
#include "gui/screens/output/OutputPanel.h"
#include "gui/screens/system/StagePanel.h"
#include "gui/screens/system/SystemPanel.h"
#include "gui/screens/zones/ZonePanel.h"
#include "gui/window/ScreenColumn.h"

namespace Gui
{
using Backend::Zones::ZoneId;

void ScreenColumn::handleSettingsChanged(const Backend::RegistrySettings& settings)
{
    if (displayPanel != nullptr) displayPanel->handleSettingsChanged(settings);
    if (ccPanel != nullptr) ccPanel->handleSettingsChanged(settings);
}

void ScreenColumn::handleLargeDisplayFontChanged(bool on)
{
    if (displayPanel != nullptr) displayPanel->handleLargeDisplayFontChanged(on);
}

void ScreenColumn::handleDefaultMidiOutputChanged(int output)
{
    outputPanel->handleDefaultMidiOutputChanged(output);
    systemPanel->handleDefaultMidiOutputChanged(output);
    if (ccPanel != nullptr) ccPanel->handleDefaultMidiOutputChanged();
}

void ScreenColumn::handleMidiInputPortsChanged(const Backend::MidiEngine::MidiInputPorts& ports)
{
    if (displayPanel != nullptr) displayPanel->handleMidiInputPortsChanged(ports);
    systemPanel->handleMidiInputPortsChanged(ports);
}

void ScreenColumn::handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports)
{
    if (displayPanel != nullptr) displayPanel->handleMidiOutputPortsChanged(ports);
    outputPanel->handleMidiOutputPortsChanged(ports);
    if (ccPanel != nullptr) ccPanel->handleMidiOutputPortsChanged(ports);
    systemPanel->handleMidiOutputPortsChanged(ports);
    if (layerPanel != nullptr) layerPanel->getLayerPanel().handleMidiOutputPorts();
}

void ScreenColumn::handleSequenceSteps(const std::vector<int>& steps)
{
    if (layerPanel != nullptr) layerPanel->handleSequenceSteps(steps);
}

void ScreenColumn::handleSequencePresets()
{
    if (layerPanel != nullptr) layerPanel->handleSequencePresets();
}

void ScreenColumn::displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event)
{
    stagePanel->displayMidiOutputEvent();
    outputPanel->displayMidiOutputEvent(event);
    if (sent.take(event) && ccPanel != nullptr) ccPanel->handleSent();
}

void ScreenColumn::handleZones(const Backend::Zones::ZoneMap& zones)
{
    if (joystickPanel != nullptr) joystickPanel->handleZones(zones);
    computerInputPanel->handleZones(zones);
    if (zonePanel != nullptr) zonePanel->handleZones(zones);
}

void ScreenColumn::handleZoneTranspose(ZoneId zone, int transpose)
{
    if (joystickPanel != nullptr) joystickPanel->handleZoneTranspose(zone, transpose);
    computerInputPanel->handleZoneTranspose(zone, transpose);
    if (zonePanel != nullptr) zonePanel->handleZoneTranspose(zone, transpose);
}

void ScreenColumn::handleZoneSelected(ZoneId zone, bool selected)
{
    if (zonePanel != nullptr) zonePanel->handleZoneSelected(zone, selected);
}
}  // namespace Gui
