#include "host/midi/PendingNoteOffs.h"

namespace Host
{
namespace
{
constexpr std::uint8_t SUSTAIN = 64;
constexpr std::uint8_t SOSTENUTO = 66;
constexpr std::uint8_t RELEASE_VELOCITY = 64;
constexpr int PEDAL_DOWN = 64;  // and above
constexpr std::uint32_t QUARTER_SECOND = 250;
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
    if (sounds) return;
    ended[current].notes.set(index);
    mayDoubt = ended.size();
}

void NoteLedger::setPedal(std::size_t index, bool down)
{
    pedals[index] = down;
    if (down) return;
    ended[current].pedals.set(index);
    mayDoubt = ended.size();
}

void NoteLedger::enter(const ShortMessage& message)
{
    if (message.startsNote()) setSounding(noteIndex(message), true);
    if (message.endsNote()) setSounding(noteIndex(message), false);
    if (!message.isController()) return;
    const auto channel = static_cast<std::size_t>(message.channel());
    if (message.bytes[1] == SUSTAIN) setPedal(channel, message.bytes[2] >= PEDAL_DOWN);
    if (message.bytes[1] == SOSTENUTO) setPedal(CHANNELS + channel, message.bytes[2] >= PEDAL_DOWN);
}

void NoteLedger::beginDelivery(std::uint32_t milliseconds)
{
    if (mayDoubt == 0 || milliseconds - currentSince < QUARTER_SECOND) return;
    --mayDoubt;
    currentSince = milliseconds;
    current = (current + 1) % ended.size();
    ended[current] = {};
}

NoteLedger::Sounds NoteLedger::inDoubt() const
{
    Sounds doubts;
    for (const Sounds& last : ended) {
        doubts.notes |= last.notes;
        doubts.pedals |= last.pedals;
    }
    return doubts;
}

void NoteLedger::doubt()
{
    const Sounds doubts = inDoubt();
    sounding |= doubts.notes;
    pedals |= doubts.pedals;
    soundingCount = static_cast<int>(sounding.count());
    ended = {};
    mayDoubt = 0;
}

void NoteLedger::noteMissed()
{
    const Sounds doubts = inDoubt();
    missed.notes |= doubts.notes;
    missed.pedals |= doubts.pedals;
}

void NoteLedger::owe()
{
    const Sounds doubts = inDoubt();
    owed.notes |= sounding | doubts.notes | paid.notes;
    owed.pedals |= pedals | doubts.pedals | paid.pedals;
}
}  // namespace Host
