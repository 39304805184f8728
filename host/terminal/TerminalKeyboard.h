#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "host/performance/PerformanceCommand.h"
#include "host/terminal/HeldKey.h"
#include "host/terminal/TerminalKeyParser.h"
#include "platform/Thread.h"

namespace Host
{
/// Reads a terminal in raw mode, on a thread of its own, until the terminal is closed, and executes a key command for
/// each press, repeat and release.
class TerminalKeyboard
{
public:
    using Execute = std::function<void(const Command&)>;

    TerminalKeyboard(int input, Execute execute);

    /// Releases the key that is held.
    ~TerminalKeyboard();

    TerminalKeyboard(const TerminalKeyboard&) = delete;
    TerminalKeyboard& operator=(const TerminalKeyboard&) = delete;

private:
    using Time = HeldKey::Time;

    void run();
    std::optional<short> waitForInput() const;
    std::optional<Time> nextTime() const;
    bool read(short events);
    void send(const std::vector<Key>& keys);

    const int input;
    int stopEvent;

    // The thread's
    HeldKey held;
    TerminalKeyParser parser;
    Time lastByte;

    Thread thread;
};
}  // namespace Host
