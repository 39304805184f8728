#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "host/performance/PerformanceCommand.h"

namespace Host
{
/// Finds out when a key is released on a terminal, which sends only presses and repeats. A key counts as released when
/// its repeats stop, when no repeat came in the time of the first one, or when another key is pressed: one key at a
/// time. Time is an argument and never goes back.
class HeldKey
{
public:
    using Time = std::chrono::steady_clock::time_point;
    using Send = std::function<void(const KeyCommand&)>;

    /// Longer than keyboards wait before the first repeat of a key, and between two repeats.
    static constexpr std::chrono::milliseconds UNTIL_FIRST_REPEAT{600};
    static constexpr std::chrono::milliseconds BETWEEN_REPEATS{100};

    explicit HeldKey(Send sendCommand) : send(std::move(sendCommand)) {}

    /// The terminal sent a key: a repeat of the one that is held, or another press.
    void receive(const Key& key, Time now);

    /// Releases the key if it is time.
    void advanceTo(Time now);

    /// Releases the key, if one is held.
    void release();

    /// When the key will be released; none while none is held.
    std::optional<Time> getEnd() const { return key ? std::optional(end) : std::nullopt; }

private:
    const Send send;
    std::optional<Key> key;
    Time end;
};
}  // namespace Host
