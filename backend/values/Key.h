#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Export.h"

/// A computer key with the modifiers held. Codes are virtual key numbers, with some of the system's own for keys that
/// those do not tell apart; eight of their bits count. Keys compare, are ordered and cross threads in the packed form.
struct ORV_API Key {
    std::int32_t keyCode = -1;  ///< -1 for no key
    bool shift = false;
    bool control = false;
    bool alt = false;
    bool win = false;

    /// From its text, "Control Alt Delete": modifiers in the order Shift, Control, Alt, Win, each followed by one
    /// blank, then the name of the key. A name that is none gives code -1 and leaves the modifiers. Not every name that
    /// is printed is read: "Left Alt" gives code -1.
    static Key fromXmlString(std::string_view text);

    /// The modifiers and the name, "Unknown" for a code without one.
    std::string toXmlString() const;

    /// From the single number of old files: from 300 up with Shift, from 600 Control, from 900 both.
    static Key fromLegacyCode(std::int32_t code);

    /// The inverse of `getPacked`; no key comes back as code 255, which is equal to it.
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
