#include "gui/screens/output/OutputPanel.h"

#include "gui/screens/output/KeyboardPanel.h"

namespace Gui::Output
{
OutputPanel::OutputPanel(OrvGuiIF& owner, Panel* around) : Panel(around), keyboardPanel(new KeyboardPanel(owner, this))
{
    keyboardPanel->show(true);
}

MusicKeyboardCtl& OutputPanel::getMusicKeyboardCtl() { return keyboardPanel->getMusicKeyboardCtl(); }

void OutputPanel::displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event)
{
    keyboardPanel->displayMidiOutputEvent(event);
}

void OutputPanel::clearHilight() { keyboardPanel->clearHilight(); }

void OutputPanel::handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports)
{
    keyboardPanel->handleMidiOutputPortsChanged(ports);
}

void OutputPanel::handleDefaultMidiOutputChanged(int output) { keyboardPanel->handleDefaultMidiOutputChanged(output); }
}  // namespace Gui::Output
