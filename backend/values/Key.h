#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Export.h"

/// A computer key with the modifiers held. Codes are Windows virtual key codes of eight bits, with own codes for keys
/// that these do not distinguish. Keys are compared, sorted and sent to other threads in their packed form.
struct ORV_API Key {
    /// The codes of the keys that are not the letter or the digit on them.
    // clang-format off
    enum Code : std::uint8_t {
        RIGHT_SHIFT = 1, PRINT_SCREEN = 5, BACKSPACE = 8, TAB, ENTER = 13, LEFT_SHIFT = 16, LEFT_CONTROL, PAUSE = 19,
        CAPS_LOCK, ESCAPE = 27, SPACE = 32, PAGE_UP, PAGE_DOWN, END, HOME, LEFT, UP, RIGHT, DOWN, INSERT = 45, DELETE,
        LEFT_WINDOWS = 91, RIGHT_WINDOWS, MENU,  ///< `MENU` is "Windows Key" in files
        NUMPAD_0 = 96, NUMPAD_1, NUMPAD_2, NUMPAD_3, NUMPAD_4, NUMPAD_5, NUMPAD_6, NUMPAD_7, NUMPAD_8, NUMPAD_9,
        NUMPAD_MULTIPLY, NUMPAD_ADD, NUMPAD_SUBTRACT = 109, NUMPAD_PERIOD, NUMPAD_DIVIDE,
        F1, F2, F3, F4, F5, F6, F7, F8, F9, F10, F11, F12, NUM_LOCK = 144, SCROLL_LOCK, LEFT_ALT = 164, RIGHT_ALT,
        SEMICOLON = 186, EQUALS, COMMA, MINUS, PERIOD, SLASH, QUOTE, LEFT_BRACKET = 219, BACKSLASH, RIGHT_BRACKET,
        APOSTROPHE, RIGHT_OF_LEFT_SHIFT,  ///< `VK_OEM_8`, because 226 is taken; the key has no name
        RIGHT_CONTROL = 225, NUMPAD_ENTER
    };
    // clang-format on

    std::int32_t keyCode = -1;  ///< -1 for no key
    bool shift = false;
    bool control = false;
    bool alt = false;
    bool win = false;

    /// From a text such as "Control Alt Delete": modifiers in the order Shift, Control, Alt, Win, each followed by one
    /// blank, then the name of the key. An unknown name gives code -1 and keeps the modifiers. Not every printed name
    /// can be read: "Left Alt" gives code -1.
    static Key fromXmlString(std::string_view text);

    /// The modifiers and the name, "Unknown" for a code without one.
    std::string toXmlString() const;

    /// From the single number of version 2: from 300 with Shift, from 600 with Control, from 900 with both.
    static Key fromLegacyCode(std::int32_t code);

    /// The inverse of `getPacked`; "no key" becomes code 255, which compares equal to it.
    static Key fromPacked(std::uint32_t packed);

    /// The low byte of the code, and from bit 8 up Shift, Control, Alt and Win.
    constexpr std::uint32_t getPacked() const
    {
        return (static_cast<std::uint32_t>(keyCode) & 0xFF) | (shift ? 0x100u : 0u) | (control ? 0x200u : 0u) |
               (alt ? 0x400u : 0u) | (win ? 0x800u : 0u);
    }

    constexpr bool operator==(const Key& other) const { return getPacked() == other.getPacked(); }
    constexpr auto operator<=>(const Key& other) const { return getPacked() <=> other.getPacked(); }
};

/// A key that is a modifier of others.
struct ModifierKey {
    std::int32_t code;
    bool Key::*modifier;
};
inline constexpr ModifierKey MODIFIERS_BY_KEY[] = {
    {Key::LEFT_SHIFT, &Key::shift},      {Key::RIGHT_SHIFT, &Key::shift}, {Key::LEFT_CONTROL, &Key::control},
    {Key::RIGHT_CONTROL, &Key::control}, {Key::LEFT_ALT, &Key::alt},      {Key::RIGHT_ALT, &Key::alt},
    {Key::LEFT_WINDOWS, &Key::win},      {Key::RIGHT_WINDOWS, &Key::win}};

/// The modifier of a modifier key, null for any other key.
constexpr bool Key::*modifierOf(std::int32_t keyCode)
{
    for (const auto& [code, modifier] : MODIFIERS_BY_KEY)
        if (code == keyCode) return modifier;
    return nullptr;
}
