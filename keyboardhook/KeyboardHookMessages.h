#pragma once

#include <cstdint>

#include "platform/Message.h"

/// What the global keyboard posts to the window.
namespace KeyboardHook
{
enum Number : unsigned int {
    KEY_DOWN = 36000,                           ///< parameters: a KeyEvent
    KEY_UP = 36001,                             ///< the same, never a repeat
    UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED = 36002  ///< first parameter: 1 if keys are now captured, 0 if not
};

/// The modifiers that are physically down, the key itself included if it is one; the bits are those of a packed `Key`.
enum Modifiers : std::uint8_t { SHIFT = 1, CONTROL = 2, ALT = 4, WIN = 8 };

/// A captured key, with the fields of a key event of the window.
struct KeyEvent {
    std::uint8_t scanCode = 0;   ///< as Qt's native scan code; see keyboardhook/KeyTable.h
    std::uint8_t modifiers = 0;  ///< of `Modifiers`
    bool repeat = false;

    Message toMessage(Number number) const { return {.number = number, .wparam = scanCode, .lparam = toParameter()}; }

    static KeyEvent fromMessage(const Message& message)
    {
        return {static_cast<std::uint8_t>(message.wparam), static_cast<std::uint8_t>(message.lparam & 0xFF),
                (message.lparam & REPEAT) != 0};
    }

    bool operator==(const KeyEvent&) const = default;

private:
    static constexpr std::int32_t REPEAT = 0x100;

    std::int32_t toParameter() const { return modifiers | (repeat ? REPEAT : 0); }
};
}  // namespace KeyboardHook
