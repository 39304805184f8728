#include "keyboardhook/KeyTable.h"

#include <array>

#include "backend/values/Key.h"
#if defined(_WIN32)
#include "keyboardhook/WindowsKeys.h"
#else
#include <linux/input-event-codes.h>
#endif

namespace KeyTable
{
namespace
{
using enum Key::Code;

#if defined(_WIN32)
constexpr int FIRST_SCAN_CODE = 0;
constexpr std::int64_t PREFIX_BIT = 0x100;  // in key messages, and in Qt's native scan code

/// As the table has it.
constexpr std::int64_t fold(std::int64_t code)
{
    constexpr std::int64_t LARGEST = 0x7F;
    const std::int64_t key = code & ~PREFIX_BIT;
    return key >= 0 && key <= LARGEST ? scanCodeOf(static_cast<int>(key), key != code) : code;
}
#else
constexpr int FIRST_SCAN_CODE = 8;  // what the X server adds to the numbers of Linux

constexpr std::int64_t fold(std::int64_t code) { return code; }
#endif

struct Row {
    int number;  ///< of Linux, or the scan code of Windows
    std::uint8_t virtualKey;
};

// clang-format off
constexpr auto ROWS = std::to_array<Row>({
    // Escape, F1 to F12, Print Screen, Scroll Lock, Pause
    {KEY_ESC, ESCAPE}, {KEY_F1, F1}, {KEY_F2, F2}, {KEY_F3, F3}, {KEY_F4, F4}, {KEY_F5, F5}, {KEY_F6, F6}, {KEY_F7, F7},
    {KEY_F8, F8}, {KEY_F9, F9}, {KEY_F10, F10}, {KEY_F11, F11}, {KEY_F12, F12}, {KEY_SYSRQ, PRINT_SCREEN},
    {KEY_SCROLLLOCK, SCROLL_LOCK}, {KEY_PAUSE, PAUSE},
    // Quote, the digits, Minus, Equals, Backspace
    {KEY_GRAVE, QUOTE}, {KEY_1, '1'}, {KEY_2, '2'}, {KEY_3, '3'}, {KEY_4, '4'}, {KEY_5, '5'}, {KEY_6, '6'},
    {KEY_7, '7'}, {KEY_8, '8'}, {KEY_9, '9'}, {KEY_0, '0'}, {KEY_MINUS, MINUS}, {KEY_EQUAL, EQUALS},
    {KEY_BACKSPACE, BACKSPACE},
    // Tab, the upper row, the brackets, Backslash
    {KEY_TAB, TAB}, {KEY_Q, 'Q'}, {KEY_W, 'W'}, {KEY_E, 'E'}, {KEY_R, 'R'}, {KEY_T, 'T'}, {KEY_Y, 'Y'}, {KEY_U, 'U'},
    {KEY_I, 'I'}, {KEY_O, 'O'}, {KEY_P, 'P'}, {KEY_LEFTBRACE, LEFT_BRACKET}, {KEY_RIGHTBRACE, RIGHT_BRACKET},
    {KEY_BACKSLASH, BACKSLASH},
    // Caps Lock, the middle row, Semicolon, Apostrophe, Enter
    {KEY_CAPSLOCK, CAPS_LOCK}, {KEY_A, 'A'}, {KEY_S, 'S'}, {KEY_D, 'D'}, {KEY_F, 'F'}, {KEY_G, 'G'}, {KEY_H, 'H'},
    {KEY_J, 'J'}, {KEY_K, 'K'}, {KEY_L, 'L'}, {KEY_SEMICOLON, SEMICOLON}, {KEY_APOSTROPHE, APOSTROPHE},
    {KEY_ENTER, ENTER},
    // Left Shift, the European key, the lower row, Comma, Period, Slash, Right Shift
    {KEY_LEFTSHIFT, LEFT_SHIFT}, {KEY_102ND, RIGHT_OF_LEFT_SHIFT}, {KEY_Z, 'Z'}, {KEY_X, 'X'}, {KEY_C, 'C'},
    {KEY_V, 'V'}, {KEY_B, 'B'}, {KEY_N, 'N'}, {KEY_M, 'M'}, {KEY_COMMA, COMMA}, {KEY_DOT, PERIOD}, {KEY_SLASH, SLASH},
    {KEY_RIGHTSHIFT, RIGHT_SHIFT},
    // Left Control, Windows and Alt, Space, Right Alt and Windows, the menu key ("Windows Key"), Right Control
    {KEY_LEFTCTRL, LEFT_CONTROL}, {KEY_LEFTMETA, LEFT_WINDOWS}, {KEY_LEFTALT, LEFT_ALT}, {KEY_SPACE, SPACE},
    {KEY_RIGHTALT, RIGHT_ALT}, {KEY_RIGHTMETA, RIGHT_WINDOWS}, {KEY_COMPOSE, MENU}, {KEY_RIGHTCTRL, RIGHT_CONTROL},
    // Insert, Home, Page Up, Delete, End, Page Down, and the arrows up, left, down, right
    {KEY_INSERT, INSERT}, {KEY_HOME, HOME}, {KEY_PAGEUP, PAGE_UP}, {KEY_DELETE, DELETE}, {KEY_END, END},
    {KEY_PAGEDOWN, PAGE_DOWN}, {KEY_UP, UP}, {KEY_LEFT, LEFT}, {KEY_DOWN, DOWN}, {KEY_RIGHT, RIGHT},
    // The keypad: Num Lock, / * -, 7 8 9 +, 4 5 6, 1 2 3 Enter, 0 .
    {KEY_NUMLOCK, NUM_LOCK}, {KEY_KPSLASH, NUMPAD_DIVIDE}, {KEY_KPASTERISK, NUMPAD_MULTIPLY},
    {KEY_KPMINUS, NUMPAD_SUBTRACT}, {KEY_KP7, NUMPAD_7}, {KEY_KP8, NUMPAD_8}, {KEY_KP9, NUMPAD_9},
    {KEY_KPPLUS, NUMPAD_ADD}, {KEY_KP4, NUMPAD_4}, {KEY_KP5, NUMPAD_5}, {KEY_KP6, NUMPAD_6}, {KEY_KP1, NUMPAD_1},
    {KEY_KP2, NUMPAD_2}, {KEY_KP3, NUMPAD_3}, {KEY_KPENTER, NUMPAD_ENTER}, {KEY_KP0, NUMPAD_0},
    {KEY_KPDOT, NUMPAD_PERIOD},
});
// clang-format on
static_assert(ROWS.size() == KEYS);

constexpr auto PLACES = [] {
    std::array<Place, KEYS> places{};
    for (std::size_t i = 0; i < KEYS; ++i)
        places[i] = {static_cast<std::uint8_t>(ROWS[i].number + FIRST_SCAN_CODE), ROWS[i].virtualKey};
    return places;
}();

using Codes = std::array<std::int16_t, 256>;

consteval Codes codesBy(std::uint8_t Place::*from, std::uint8_t Place::*to)
{
    Codes codes{};
    codes.fill(-1);
    for (const Place& place : PLACES) {
        if (codes[place.*from] != -1) throw "twice in the table";  // is not compiled
        codes[place.*from] = place.*to;
    }
    return codes;
}

constexpr Codes VIRTUAL_KEYS = codesBy(&Place::scanCode, &Place::virtualKey);
constexpr Codes SCAN_CODES = codesBy(&Place::virtualKey, &Place::scanCode);

int find(const Codes& codes, std::int64_t code)
{
    return code < 0 || code > 255 ? -1 : codes[static_cast<std::size_t>(code)];
}
}  // namespace

std::span<const Place, KEYS> getPlaces() { return PLACES; }

int virtualKeyAt(std::int64_t scanCode) { return find(VIRTUAL_KEYS, fold(scanCode)); }

int scanCodeOf(std::int64_t virtualKey) { return find(SCAN_CODES, virtualKey); }
}  // namespace KeyTable
