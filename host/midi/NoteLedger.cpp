#include "host/midi/NoteLedger.h"

namespace Host
{
namespace
{
constexpr std::uint8_t SUSTAIN = 64;
constexpr std::uint8_t SOSTENUTO = 66;
constexpr std::uint8_t RELEASE_VELOCITY = 64;
constexpr int PEDAL_DOWN = 64;  // and above
}  // namespace

ShortMessage noteOff(std::size_t index)
{
    return {
        {static_cast<std::uint8_t>(0x80 | index / NOTES), static_cast<std::uint8_t>(index % NOTES), RELEASE_VELOCITY},
        3};
}

ShortMessage NoteLedger::pedalUp(std::size_t index)
{
    return {{static_cast<std::uint8_t>(0xB0 | index % CHANNELS), index < CHANNELS ? SUSTAIN : SOSTENUTO, 0}, 3};
}

void NoteLedger::setSounding(std::size_t index, bool sounds)
{
    if (sounding[index] != sounds) soundingCount += sounds ? 1 : -1;
    sounding[index] = sounds;
}

void NoteLedger::enter(const ShortMessage& message)
{
    if (message.startsNote()) setSounding(noteIndex(message), true);
    if (message.endsNote()) setSounding(noteIndex(message), false);
    if (!message.isController()) return;
    const auto channel = static_cast<std::size_t>(message.channel());
    if (message.bytes[1] == SUSTAIN) pedals.set(channel, message.bytes[2] >= PEDAL_DOWN);
    if (message.bytes[1] == SOSTENUTO) pedals.set(CHANNELS + channel, message.bytes[2] >= PEDAL_DOWN);
}
}  // namespace Host
