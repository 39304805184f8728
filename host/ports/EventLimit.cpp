#include "host/ports/EventLimit.h"

#include <algorithm>
#include <limits>

namespace Host
{
namespace
{
constexpr std::uint32_t PER_MILLISECOND = EventLimit::PER_SECOND / 1000;
constexpr std::uint16_t MOST_NOTE_ONS = 16;
constexpr std::int32_t FLOOD_BEGINS = EventLimit::BURST * 7 / 8;
constexpr std::uint32_t LONGEST_PAUSE = EventLimit::BURST;  // a longer pause gives no more tokens

std::size_t controllerIndex(const ShortMessage& message)
{
    return static_cast<std::size_t>(message.channel() * 128 + message.bytes[1]);
}
}  // namespace

bool EventLimit::passes(const ShortMessage& message, std::uint32_t milliseconds)
{
    refill(milliseconds);
    allTokens = std::max(allTokens - 1, 0);
    if ((tokens <= 0 || isRepeatedNoteOn(message)) && !ends(message)) {
        limited.store(limitedCount() + 1, std::memory_order_relaxed);
        return false;
    }
    tokens = std::max(tokens - 1, 0);
    record(message);
    return true;
}

/// During a flood, a further note-on of a note that already has many without a note-off: each of them has to be
/// released when the flood ends.
bool EventLimit::isRepeatedNoteOn(const ShortMessage& message) const
{
    return allTokens < FLOOD_BEGINS && message.startsNote() && noteOns[noteIndex(message)] >= MOST_NOTE_ONS;
}

void EventLimit::refill(std::uint32_t milliseconds)
{
    const std::uint32_t passed = std::min(milliseconds - lastRefill, LONGEST_PAUSE);
    lastRefill = milliseconds;
    const auto more = static_cast<std::int32_t>(passed * PER_MILLISECOND);
    tokens = std::min(tokens + more, BURST);
    allTokens = std::min(allTokens + more, BURST);
}

bool EventLimit::ends(const ShortMessage& message) const
{
    if (message.endsNote()) return noteOns[noteIndex(message)] > 0;
    return message.isController() && message.bytes[2] == 0 && controllers[controllerIndex(message)];
}

void EventLimit::record(const ShortMessage& message)
{
    if (message.isController()) controllers[controllerIndex(message)] = message.bytes[2] > 0;
    if (!message.startsNote() && !message.endsNote()) return;
    std::uint16_t& count = noteOns[noteIndex(message)];
    if (message.startsNote())
        count = count < std::numeric_limits<std::uint16_t>::max() ? static_cast<std::uint16_t>(count + 1) : count;
    else
        count = count > 0 ? static_cast<std::uint16_t>(count - 1) : count;
}
}  // namespace Host
