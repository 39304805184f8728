#pragma once

#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"
#include "gui/framework/Panel.h"
#include "gui/musickeyboard/KeyPlayer.h"

class QLabel;

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Output
{
class ChannelLights;

/// The music keyboard, and above it the name of the default output and the channel lights.
class KeyboardPanel final : public Panel
{
public:
    KeyboardPanel(OrvGuiIF& owner, Panel* around);
    ~KeyboardPanel() override;

    MusicKeyboardCtl& getMusicKeyboardCtl() { return *keyboard; }

    void displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event);
    void clearHilight();
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports);
    void handleDefaultMidiOutputChanged(int output);

protected:
    void scaleChanged() override;

private:
    void makeTopRow();

    OrvGuiIF& gui;
    KeyPlayer player;
    MusicKeyboardCtl* keyboard;
    ChannelLights* lights;
    QLabel* outputName;
};
}  // namespace Gui::Output
