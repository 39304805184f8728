#include "gui/musickeyboard/KeyPlayer.h"

#include "api/OrvMessageManager.h"

namespace Gui::Output
{
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
constexpr int RELEASE_VELOCITY = 64;
constexpr int UNTIMED = -1;

OrvMidiMessage event(MessageType type, int note, int velocity)
{
    return {type,
            note,
            velocity,
            OrvMidiMessage::DEFAULT_CHANNEL,
            OrvMidiMessage::DEFAULT_OUTPUT,
            OrvMidiMessage::DEFAULT_ZONE,
            OrvMidiMessage::DEFAULT_INPUT,
            UNTIMED};
}
}  // namespace

void KeyPlayer::keyPressed(int note, int velocity, Qt::MouseButton button)
{
    if (button == Qt::LeftButton) commands.postPlayMidi(event(MessageType::noteOn, note, velocity));
}

void KeyPlayer::keyReleased(int note) { commands.postPlayMidi(event(MessageType::noteOff, note, RELEASE_VELOCITY)); }
}  // namespace Gui::Output
