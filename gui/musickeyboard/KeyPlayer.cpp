#include "gui/musickeyboard/KeyPlayer.h"

#include "api/OrvMessageManager.h"

namespace Gui::Output
{
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
constexpr int RELEASE_VELOCITY = 64;

OrvMidiMessage event(MessageType type, int note, int velocity)
{
    return OrvMidiMessage({.type = type, .d1 = note, .d2 = velocity});
}
}  // namespace

void KeyPlayer::keyPressed(int note, int velocity, Qt::MouseButton button)
{
    if (button == Qt::LeftButton) commands.postPlayMidi(event(MessageType::noteOn, note, velocity));
}

void KeyPlayer::keyReleased(int note) { commands.postPlayMidi(event(MessageType::noteOff, note, RELEASE_VELOCITY)); }
}  // namespace Gui::Output
