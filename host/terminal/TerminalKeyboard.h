#pragma once

#include <functional>
#include <memory>

#include "host/performance/PerformanceCommand.h"

namespace Host
{
/// Reads a terminal in raw mode, on a thread of its own, until the terminal is closed, and executes a key command for
/// each press, repeat and release.
class TerminalKeyboard
{
public:
    using Execute = std::function<void(const Command&)>;

    /// The descriptor stays open and belongs to the caller.
    TerminalKeyboard(int fileDescriptor, Execute execute);

    /// Releases the key that is held.
    ~TerminalKeyboard();

    TerminalKeyboard(const TerminalKeyboard&) = delete;
    TerminalKeyboard& operator=(const TerminalKeyboard&) = delete;

private:
    class Reader;
    const std::unique_ptr<Reader> reader;
};
}  // namespace Host
