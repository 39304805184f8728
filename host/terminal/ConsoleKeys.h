#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "host/performance/PerformanceCommand.h"

namespace Host
{
/// A key event of a Windows console: the system's virtual key code, the scan code and the flags of the keyboard.
struct ConsoleKey {
    std::uint16_t virtualKey = 0;
    std::uint16_t scanCode = 0;
    bool isDown = false;
    bool isExtended = false;  ///< the right one of two, or not on the keypad
    bool shift = false;
    bool control = false;
    bool alt = false;
};

/// Turns the key events of a Windows console, which reports releases too, into presses, repeats and releases. Keys that
/// Windows does not distinguish by their virtual key code have codes of their own (`Key`).
class ConsoleKeys
{
public:
    /// None for a key that `Key` does not have, and for a release without a press.
    std::optional<KeyCommand> receive(const ConsoleKey& event);

    /// The releases of all keys that are down, because their events went to another window.
    std::vector<KeyCommand> release();

private:
    std::vector<Key> down;
};
}  // namespace Host
