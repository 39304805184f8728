#include "host/ports/EventLimit.h"

#include <algorithm>
#include <limits>

namespace Host
{
namespace
{
constexpr std::uint32_t PER_MILLISECOND = EventLimit::PER_SECOND / 1000;
constexpr std::uint16_t MOST_STRIKES = 16;
constexpr std::int32_t FLOOD_BEGINS = EventLimit::BURST * 7 / 8;
constexpr std::uint32_t LONGEST_PAUSE = EventLimit::BURST;  // more fills the room no further

std::size_t controllerIndex(const ShortMessage& message)
{
    return static_cast<std::size_t>(message.channel() * 128 + message.bytes[1]);
}
}  // namespace

bool EventLimit::passes(const ShortMessage& message, std::uint32_t milliseconds)
{
    refill(milliseconds);
    calm = std::max(calm - 1, 0);
    if ((room <= 0 || isStruckAgain(message)) && !ends(message)) {
        limited.store(limitedCount() + 1, std::memory_order_relaxed);
        return false;
    }
    room = std::max(room - 1, 0);
    enter(message);
    return true;
}

/// A note that is struck over and over in a flood: whoever takes the flood away has to release every strike.
bool EventLimit::isStruckAgain(const ShortMessage& message) const
{
    return calm < FLOOD_BEGINS && message.startsNote() && strikes[noteIndex(message)] >= MOST_STRIKES;
}

void EventLimit::refill(std::uint32_t milliseconds)
{
    const std::uint32_t passed = std::min(milliseconds - lastRefill, LONGEST_PAUSE);
    lastRefill = milliseconds;
    const auto more = static_cast<std::int32_t>(passed * PER_MILLISECOND);
    room = std::min(room + more, BURST);
    calm = std::min(calm + more, BURST);
}

bool EventLimit::ends(const ShortMessage& message) const
{
    if (message.endsNote()) return strikes[noteIndex(message)] > 0;
    return message.isController() && message.bytes[2] == 0 && controllers[controllerIndex(message)];
}

void EventLimit::enter(const ShortMessage& message)
{
    if (message.isController()) controllers[controllerIndex(message)] = message.bytes[2] > 0;
    if (!message.startsNote() && !message.endsNote()) return;
    std::uint16_t& count = strikes[noteIndex(message)];
    if (message.startsNote())
        count = count < std::numeric_limits<std::uint16_t>::max() ? static_cast<std::uint16_t>(count + 1) : count;
    else
        count = count > 0 ? static_cast<std::uint16_t>(count - 1) : count;
}
}  // namespace Host
