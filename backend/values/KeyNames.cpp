#include "backend/values/KeyNames.h"

#include "backend/xml/Words.h"

namespace
{
using KeyName = Word<std::int32_t>;

// Names that are both read and printed.
// clang-format off
constexpr auto KEY_NAMES = std::to_array<KeyName>({
    {'A', "A"}, {'B', "B"}, {'C', "C"}, {'D', "D"}, {'E', "E"}, {'F', "F"}, {'G', "G"}, {'H', "H"}, {'I', "I"},
    {'J', "J"}, {'K', "K"}, {'L', "L"}, {'M', "M"}, {'N', "N"}, {'O', "O"}, {'P', "P"}, {'Q', "Q"}, {'R', "R"},
    {'S', "S"}, {'T', "T"}, {'U', "U"}, {'V', "V"}, {'W', "W"}, {'X', "X"}, {'Y', "Y"}, {'Z', "Z"}, {'0', "0"},
    {'1', "1"}, {'2', "2"}, {'3', "3"}, {'4', "4"}, {'5', "5"}, {'6', "6"}, {'7', "7"}, {'8', "8"}, {'9', "9"},
    {112, "F1"}, {113, "F2"}, {114, "F3"}, {115, "F4"}, {116, "F5"}, {117, "F6"}, {118, "F7"}, {119, "F8"},
    {120, "F9"}, {121, "F10"}, {122, "F11"}, {123, "F12"}, {96, "Numpad 0"}, {97, "Numpad 1"}, {98, "Numpad 2"},
    {99, "Numpad 3"}, {100, "Numpad 4"}, {101, "Numpad 5"}, {102, "Numpad 6"}, {103, "Numpad 7"}, {104, "Numpad 8"},
    {105, "Numpad 9"}, {106, "Numpad *"}, {107, "Numpad +"}, {109, "Numpad -"}, {110, "Numpad ."}, {111, "Numpad /"},
    {226, "Numpad Enter"}, {144, "Num Lock"}, {8, "Backspace"}, {9, "Tab"}, {13, "Enter"}, {1, "Right Shift"},
    {225, "Right Control"}, {165, "Right Alt"}, {5, "Print Screen"}, {19, "Pause"}, {20, "Caps Lock"}, {27, "Escape"},
    {32, "Space"}, {33, "Page Up"}, {34, "Page Down"}, {35, "End"}, {36, "Home"}, {37, "Left"}, {38, "Up"},
    {39, "Right"}, {40, "Down"}, {45, "Insert"}, {46, "Delete"}, {92, "Right Windows"}, {93, "Windows Key"},
    {145, "Scroll Lock"}, {186, "Semicolon"}, {187, "Equals"}, {188, "Comma"}, {189, "Minus"}, {190, "Period"},
    {191, "Slash"}, {192, "Quote"}, {219, "Left Bracket"}, {220, "Backslash"}, {221, "Right Bracket"},
    {222, "Apostrophe"},
});
// clang-format on

// These names are read, but the keys are printed as left ones. Files of all versions depend on this difference: a key
// that is stored as "Left Alt" is read as no key.
constexpr auto READ_ONLY = std::to_array<KeyName>({{16, "Shift"}, {17, "Control"}, {2, "Alt"}});
constexpr auto PRINTED_ONLY =
    std::to_array<KeyName>({{16, "Left Shift"}, {17, "Left Control"}, {91, "Left Windows"}, {164, "Left Alt"}});
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
