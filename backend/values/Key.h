#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Export.h"

/// A computer key with the modifiers held. Codes are Windows virtual key codes of eight bits, with own codes for keys
/// that these do not distinguish. Keys are compared, sorted and sent to other threads in their packed form.
struct ORV_API Key {
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
