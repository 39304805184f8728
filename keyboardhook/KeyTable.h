#pragma once

#include <array>
#include <cstdint>

/// The keys of a standard keyboard: the 104 of the US one, and the additional one of European keyboards. A key is
/// identified by its position, whatever the layout prints on it, so that the piano rows keep their shape: the key right
/// of Tab is "Q" on every layout, and the keypad's digits are never arrows.
///
/// A scan code is what the X server calls a keycode: the number of the Linux input event (linux/input-event-codes.h)
/// plus 8. A virtual key is the code of a `Key`.
namespace KeyTable
{
struct Place {
    std::uint8_t scanCode;
    std::uint8_t virtualKey;
};

/// `VK_OEM_8`, without a name. Its usual code would be 226, which is the keypad's Enter here.
inline constexpr std::uint8_t KEY_RIGHT_OF_LEFT_SHIFT = 223;

// clang-format off
inline constexpr auto PLACES = std::to_array<Place>({
    // Escape, F1 to F12, Print Screen, Scroll Lock, Pause
    {9, 27}, {67, 112}, {68, 113}, {69, 114}, {70, 115}, {71, 116}, {72, 117}, {73, 118}, {74, 119}, {75, 120},
    {76, 121}, {95, 122}, {96, 123}, {107, 5}, {78, 145}, {127, 19},
    // Quote, the digits, Minus, Equals, Backspace
    {49, 192}, {10, '1'}, {11, '2'}, {12, '3'}, {13, '4'}, {14, '5'}, {15, '6'}, {16, '7'}, {17, '8'}, {18, '9'},
    {19, '0'}, {20, 189}, {21, 187}, {22, 8},
    // Tab, the upper row, the brackets, Backslash
    {23, 9}, {24, 'Q'}, {25, 'W'}, {26, 'E'}, {27, 'R'}, {28, 'T'}, {29, 'Y'}, {30, 'U'}, {31, 'I'}, {32, 'O'},
    {33, 'P'}, {34, 219}, {35, 221}, {51, 220},
    // Caps Lock, the middle row, Semicolon, Apostrophe, Enter
    {66, 20}, {38, 'A'}, {39, 'S'}, {40, 'D'}, {41, 'F'}, {42, 'G'}, {43, 'H'}, {44, 'J'}, {45, 'K'}, {46, 'L'},
    {47, 186}, {48, 222}, {36, 13},
    // Left Shift, the European key, the lower row, Comma, Period, Slash, Right Shift
    {50, 16}, {94, KEY_RIGHT_OF_LEFT_SHIFT}, {52, 'Z'}, {53, 'X'}, {54, 'C'}, {55, 'V'}, {56, 'B'}, {57, 'N'},
    {58, 'M'}, {59, 188}, {60, 190}, {61, 191}, {62, 1},
    // Left Control, Windows and Alt, Space, Right Alt and Windows, the menu key ("Windows Key"), Right Control
    {37, 17}, {133, 91}, {64, 164}, {65, 32}, {108, 165}, {134, 92}, {135, 93}, {105, 225},
    // Insert, Home, Page Up, Delete, End, Page Down, and the arrows up, left, down, right
    {118, 45}, {110, 36}, {112, 33}, {119, 46}, {115, 35}, {117, 34}, {111, 38}, {113, 37}, {116, 40}, {114, 39},
    // The keypad: Num Lock, / * -, 7 8 9 +, 4 5 6, 1 2 3 Enter, 0 .
    {77, 144}, {106, 111}, {63, 106}, {82, 109}, {79, 103}, {80, 104}, {81, 105}, {86, 107}, {83, 100}, {84, 101},
    {85, 102}, {87, 97}, {88, 98}, {89, 99}, {104, 226}, {90, 96}, {91, 110},
});
// clang-format on

namespace Detail
{
using Codes = std::array<std::int16_t, 256>;

consteval Codes codesBy(std::uint8_t Place::*from, std::uint8_t Place::*to)
{
    Codes codes{};
    codes.fill(-1);
    for (const Place& place : PLACES) codes[place.*from] = place.*to;
    return codes;
}

inline constexpr Codes VIRTUAL_KEYS = codesBy(&Place::scanCode, &Place::virtualKey);
inline constexpr Codes SCAN_CODES = codesBy(&Place::virtualKey, &Place::scanCode);

constexpr int find(const Codes& codes, std::int64_t code)
{
    return code < 0 || code > 255 ? -1 : codes[static_cast<std::size_t>(code)];
}
}  // namespace Detail

/// The virtual key of a scan code; -1 if the keyboard above has none (a volume key).
constexpr int virtualKeyAt(std::int64_t scanCode) { return Detail::find(Detail::VIRTUAL_KEYS, scanCode); }

/// The scan code of a virtual key; -1 if the keyboard above does not have it.
constexpr int scanCodeOf(std::int64_t virtualKey) { return Detail::find(Detail::SCAN_CODES, virtualKey); }
}  // namespace KeyTable
