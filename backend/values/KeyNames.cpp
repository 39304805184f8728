#include "backend/values/KeyNames.h"

#include "backend/values/Key.h"
#include "backend/xml/Words.h"

namespace
{
using enum Key::Code;
using KeyName = Word<std::int32_t>;

// Names that are both read and printed.
// clang-format off
constexpr auto KEY_NAMES = std::to_array<KeyName>({
    {'A', "A"}, {'B', "B"}, {'C', "C"}, {'D', "D"}, {'E', "E"}, {'F', "F"}, {'G', "G"}, {'H', "H"}, {'I', "I"},
    {'J', "J"}, {'K', "K"}, {'L', "L"}, {'M', "M"}, {'N', "N"}, {'O', "O"}, {'P', "P"}, {'Q', "Q"}, {'R', "R"},
    {'S', "S"}, {'T', "T"}, {'U', "U"}, {'V', "V"}, {'W', "W"}, {'X', "X"}, {'Y', "Y"}, {'Z', "Z"}, {'0', "0"},
    {'1', "1"}, {'2', "2"}, {'3', "3"}, {'4', "4"}, {'5', "5"}, {'6', "6"}, {'7', "7"}, {'8', "8"}, {'9', "9"},
    {F1, "F1"}, {F2, "F2"}, {F3, "F3"}, {F4, "F4"}, {F5, "F5"}, {F6, "F6"}, {F7, "F7"}, {F8, "F8"}, {F9, "F9"},
    {F10, "F10"}, {F11, "F11"}, {F12, "F12"}, {NUMPAD_0, "Numpad 0"}, {NUMPAD_1, "Numpad 1"}, {NUMPAD_2, "Numpad 2"},
    {NUMPAD_3, "Numpad 3"}, {NUMPAD_4, "Numpad 4"}, {NUMPAD_5, "Numpad 5"}, {NUMPAD_6, "Numpad 6"},
    {NUMPAD_7, "Numpad 7"}, {NUMPAD_8, "Numpad 8"}, {NUMPAD_9, "Numpad 9"}, {NUMPAD_MULTIPLY, "Numpad *"},
    {NUMPAD_ADD, "Numpad +"}, {NUMPAD_SUBTRACT, "Numpad -"}, {NUMPAD_PERIOD, "Numpad ."}, {NUMPAD_DIVIDE, "Numpad /"},
    {NUMPAD_ENTER, "Numpad Enter"}, {NUM_LOCK, "Num Lock"}, {BACKSPACE, "Backspace"}, {TAB, "Tab"}, {ENTER, "Enter"},
    {RIGHT_SHIFT, "Right Shift"}, {RIGHT_CONTROL, "Right Control"}, {RIGHT_ALT, "Right Alt"},
    {PRINT_SCREEN, "Print Screen"}, {PAUSE, "Pause"}, {CAPS_LOCK, "Caps Lock"}, {ESCAPE, "Escape"}, {SPACE, "Space"},
    {PAGE_UP, "Page Up"}, {PAGE_DOWN, "Page Down"}, {END, "End"}, {HOME, "Home"}, {LEFT, "Left"}, {UP, "Up"},
    {RIGHT, "Right"}, {DOWN, "Down"}, {INSERT, "Insert"}, {DELETE, "Delete"}, {RIGHT_WINDOWS, "Right Windows"},
    {MENU, "Windows Key"}, {SCROLL_LOCK, "Scroll Lock"}, {SEMICOLON, "Semicolon"}, {EQUALS, "Equals"}, {COMMA, "Comma"},
    {MINUS, "Minus"}, {PERIOD, "Period"}, {SLASH, "Slash"}, {QUOTE, "Quote"}, {LEFT_BRACKET, "Left Bracket"},
    {BACKSLASH, "Backslash"}, {RIGHT_BRACKET, "Right Bracket"}, {APOSTROPHE, "Apostrophe"},
});
// clang-format on

// These names are read, but the keys are printed as left ones. Files of all versions depend on this difference: a key
// that is stored as "Left Alt" is read as no key.
constexpr auto READ_ONLY = std::to_array<KeyName>({{LEFT_SHIFT, "Shift"}, {LEFT_CONTROL, "Control"}, {2, "Alt"}});
constexpr auto PRINTED_ONLY = std::to_array<KeyName>({{LEFT_SHIFT, "Left Shift"},
                                                      {LEFT_CONTROL, "Left Control"},
                                                      {LEFT_WINDOWS, "Left Windows"},
                                                      {LEFT_ALT, "Left Alt"}});
}  // namespace

std::optional<std::int32_t> readKeyName(std::string_view name)
{
    const auto code = readWord(KEY_NAMES, name);
    return code ? code : readWord(READ_ONLY, name);
}

std::optional<std::string_view> printKeyName(std::int32_t keyCode)
{
    const auto name = printWord(KEY_NAMES, keyCode);
    return name ? name : printWord(PRINTED_ONLY, keyCode);
}
