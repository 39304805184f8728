#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// The keys of a standard keyboard: the 104 of the US one, and the additional one of European keyboards. A key is
/// identified by its position, whatever the layout prints on it, so that the piano rows keep their shape: the key right
/// of Tab is "Q" on every layout, and the keypad's digits are never arrows.
///
/// A scan code is what the X server calls a keycode: the number of the Linux input event (linux/input-event-codes.h)
/// plus 8; on Windows that of the keyboard (set 1), with bit 7 for the prefix E0. A virtual key is the code of a `Key`.
namespace KeyTable
{
inline constexpr std::size_t KEYS = 105;

struct Place {
    std::uint8_t scanCode;
    std::uint8_t virtualKey;
};

std::span<const Place, KEYS> getPlaces();

/// The virtual key of a scan code, on Windows also as key messages and Qt have it, with bit 8 for the prefix; -1 if the
/// keyboard above has none (a volume key).
int virtualKeyAt(std::int64_t scanCode);

/// The scan code of a virtual key; -1 if the keyboard above does not have it.
int scanCodeOf(std::int64_t virtualKey);
}  // namespace KeyTable
