#include "host/midi/PendingNoteOffs.h"

#include <array>
#include <utility>

namespace Host
{
namespace
{
constexpr std::array<std::uint8_t, 3> PEDALS{64, 66, 67};
constexpr std::uint8_t RELEASE_VELOCITY = 64;
constexpr std::uint32_t QUARTER_SECOND = 250;
}  // namespace

ShortMessage noteOff(std::size_t index)
{
    return {
        {static_cast<std::uint8_t>(0x80 | index / NOTES), static_cast<std::uint8_t>(index % NOTES), RELEASE_VELOCITY},
        3};
}

ShortMessage PendingNoteOffs::pedalUp(std::size_t index)
{
    return {{static_cast<std::uint8_t>(0xB0 | index % CHANNELS), PEDALS[index / CHANNELS], 0}, 3};
}

void PendingNoteOffs::setSounding(std::size_t index, bool sounds)
{
    if (sounding.notes[index] != sounds) soundingCount += sounds ? 1 : -1;
    sounding.notes[index] = sounds;
    if (sounds) return;
    recentQuarters[current].notes.set(index);
    filledQuarters = recentQuarters.size();
}

void PendingNoteOffs::setPedal(std::size_t index, bool down)
{
    sounding.pedals[index] = down;
    if (down) return;
    recentQuarters[current].pedals.set(index);
    filledQuarters = recentQuarters.size();
}

void PendingNoteOffs::record(const ShortMessage& message)
{
    if (message.startsNote()) setSounding(noteIndex(message), true);
    if (message.endsNote()) setSounding(noteIndex(message), false);
    if (!message.isController()) return;
    const auto channel = static_cast<std::size_t>(message.channel());
    for (std::size_t pedal = 0; pedal < PEDALS.size(); ++pedal)  // half a pedal is down too
        if (message.bytes[1] == PEDALS[pedal]) setPedal(pedal * CHANNELS + channel, message.bytes[2] > 0);
}

void PendingNoteOffs::beginDelivery(std::uint32_t milliseconds)
{
    if (filledQuarters == 0 || milliseconds - currentSince < QUARTER_SECOND) return;
    --filledQuarters;
    currentSince = milliseconds;
    current = (current + 1) % recentQuarters.size();
    recentQuarters[current] = {};
}

PendingNoteOffs::Notes PendingNoteOffs::recent() const
{
    Notes all;
    for (const Notes& quarter : recentQuarters) add(all, quarter);
    return all;
}

void PendingNoteOffs::queue(const Notes& ends)
{
    add(queued, ends);
    hasQueued = true;
}

void PendingNoteOffs::markUndelivered()
{
    add(undelivered, sounding);
    add(undelivered, recent());
    add(undelivered, sentOnce);
    add(undelivered, queued);
}

void PendingNoteOffs::queueUndelivered()
{
    remove(undelivered, sounding);
    add(sentOnce, undelivered);
    queue(std::exchange(undelivered, {}));
}

void PendingNoteOffs::queueSentOnce() { queue(std::exchange(sentOnce, {})); }

void PendingNoteOffs::queueRecent() { queue(recent()); }

void PendingNoteOffs::markLinkBroken()
{
    markUndelivered();
    add(sounding, recent());
    add(sounding, std::exchange(queued, {}));
    hasQueued = false;
    soundingCount = static_cast<int>(sounding.notes.count());
    recentQuarters = {};
    filledQuarters = 0;
}
}  // namespace Host
