#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "host/performance/PerformanceCommand.h"

namespace Host
{
/// Works out when a key comes up on a terminal, which tells only when one goes down and again while it is held. A key
/// counts as released when its repeats stop, or when they have had time to begin and did not, or when another key
/// arrives: one key at a time. Time comes in as an argument and never goes back.
class HeldKey
{
public:
    using Time = std::chrono::steady_clock::time_point;
    using Send = std::function<void(const KeyCommand&)>;

    /// Longer than any keyboard waits before it repeats a key, and then between two repeats.
    static constexpr std::chrono::milliseconds UNTIL_FIRST_REPEAT{600};
    static constexpr std::chrono::milliseconds BETWEEN_REPEATS{100};

    explicit HeldKey(Send sendCommand) : send(std::move(sendCommand)) {}

    /// A key came from the terminal: a repeat of the one that is held, or another press.
    void arrive(const Key& key, Time now);

    /// Releases the key if it is time.
    void pass(Time now);

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
