#pragma once

#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"
#include "gui/framework/Panel.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Output
{
class KeyboardPanel;
class MusicKeyboardCtl;

/// The output screen: the music keyboard, and below it the panels that are aligned with its keys.
class OutputPanel final : public Panel
{
public:
    OutputPanel(OrvGuiIF& owner, Panel* around);

    MusicKeyboardCtl& getMusicKeyboardCtl();

    void displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event);
    void clearHilight();
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports);
    void handleDefaultMidiOutputChanged(int output);

private:
    KeyboardPanel* keyboardPanel;
};
}  // namespace Gui::Output
