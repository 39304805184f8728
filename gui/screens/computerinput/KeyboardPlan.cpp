#include "gui/screens/computerinput/KeyboardPlan.h"

#include <array>

#include "backend/values/Key.h"
#include "keyboardhook/KeyTable.h"

namespace Gui::ComputerInput
{
namespace
{
using enum Key::Code;

constexpr float NAVIGATION = 15.25F;
constexpr float KEYPAD = 18.5F;
// The rows, from the function keys downwards.
constexpr float R0 = 0;
constexpr float R1 = 1.25F;
constexpr float R2 = 2.25F;
constexpr float R3 = 3.25F;
constexpr float R4 = 4.25F;
constexpr float R5 = 5.25F;

// clang-format off
constexpr auto KEYS = std::to_array<PlannedKey>({
    {ESCAPE, "Esc", 0, R0},
    {F1, "F1", 2, R0}, {F2, "F2", 3, R0}, {F3, "F3", 4, R0}, {F4, "F4", 5, R0},
    {F5, "F5", 6.5F, R0}, {F6, "F6", 7.5F, R0}, {F7, "F7", 8.5F, R0}, {F8, "F8", 9.5F, R0},
    {F9, "F9", 11, R0}, {F10, "F10", 12, R0}, {F11, "F11", 13, R0}, {F12, "F12", 14, R0},
    {PRINT_SCREEN, "Print", NAVIGATION, R0}, {SCROLL_LOCK, "Scroll", NAVIGATION + 1, R0},
    {PAUSE, "Pause", NAVIGATION + 2, R0},

    {QUOTE, "`", 0, R1}, {'1', "1", 1, R1}, {'2', "2", 2, R1}, {'3', "3", 3, R1}, {'4', "4", 4, R1}, {'5', "5", 5, R1},
    {'6', "6", 6, R1}, {'7', "7", 7, R1}, {'8', "8", 8, R1}, {'9', "9", 9, R1}, {'0', "0", 10, R1},
    {MINUS, "-", 11, R1}, {EQUALS, "=", 12, R1}, {BACKSPACE, "Backspace", 13, R1, 2},

    {TAB, "Tab", 0, R2, 1.5F}, {'Q', "Q", 1.5F, R2}, {'W', "W", 2.5F, R2}, {'E', "E", 3.5F, R2}, {'R', "R", 4.5F, R2},
    {'T', "T", 5.5F, R2}, {'Y', "Y", 6.5F, R2}, {'U', "U", 7.5F, R2}, {'I', "I", 8.5F, R2}, {'O', "O", 9.5F, R2},
    {'P', "P", 10.5F, R2}, {LEFT_BRACKET, "[", 11.5F, R2}, {RIGHT_BRACKET, "]", 12.5F, R2},
    {BACKSLASH, "\\", 13.5F, R2, 1.5F},

    {CAPS_LOCK, "Caps", 0, R3, 1.75F}, {'A', "A", 1.75F, R3}, {'S', "S", 2.75F, R3}, {'D', "D", 3.75F, R3},
    {'F', "F", 4.75F, R3}, {'G', "G", 5.75F, R3}, {'H', "H", 6.75F, R3}, {'J', "J", 7.75F, R3}, {'K', "K", 8.75F, R3},
    {'L', "L", 9.75F, R3}, {SEMICOLON, ";", 10.75F, R3}, {APOSTROPHE, "'", 11.75F, R3},
    {ENTER, "Enter", 12.75F, R3, 2.25F},

    {LEFT_SHIFT, "Shift", 0, R4, 1.25F}, {RIGHT_OF_LEFT_SHIFT, "<", 1.25F, R4}, {'Z', "Z", 2.25F, R4},
    {'X', "X", 3.25F, R4}, {'C', "C", 4.25F, R4}, {'V', "V", 5.25F, R4}, {'B', "B", 6.25F, R4}, {'N', "N", 7.25F, R4},
    {'M', "M", 8.25F, R4}, {COMMA, ",", 9.25F, R4}, {PERIOD, ".", 10.25F, R4}, {SLASH, "/", 11.25F, R4},
    {RIGHT_SHIFT, "Shift", 12.25F, R4, 2.75F},

    {LEFT_CONTROL, "Ctrl", 0, R5, 1.25F}, {LEFT_WINDOWS, "Win", 1.25F, R5, 1.25F}, {LEFT_ALT, "Alt", 2.5F, R5, 1.25F},
    {SPACE, "Space", 3.75F, R5, 6.25F}, {RIGHT_ALT, "Alt", 10, R5, 1.25F}, {RIGHT_WINDOWS, "Win", 11.25F, R5, 1.25F},
    {MENU, "Menu", 12.5F, R5, 1.25F}, {RIGHT_CONTROL, "Ctrl", 13.75F, R5, 1.25F},

    {INSERT, "Ins", NAVIGATION, R1}, {HOME, "Home", NAVIGATION + 1, R1}, {PAGE_UP, "PgUp", NAVIGATION + 2, R1},
    {DELETE, "Del", NAVIGATION, R2}, {END, "End", NAVIGATION + 1, R2}, {PAGE_DOWN, "PgDn", NAVIGATION + 2, R2},
    {UP, "Up", NAVIGATION + 1, R4},
    {LEFT, "Left", NAVIGATION, R5}, {DOWN, "Down", NAVIGATION + 1, R5}, {RIGHT, "Right", NAVIGATION + 2, R5},

    {NUM_LOCK, "Num", KEYPAD, R1}, {NUMPAD_DIVIDE, "/", KEYPAD + 1, R1}, {NUMPAD_MULTIPLY, "*", KEYPAD + 2, R1},
    {NUMPAD_SUBTRACT, "-", KEYPAD + 3, R1},
    {NUMPAD_7, "7", KEYPAD, R2}, {NUMPAD_8, "8", KEYPAD + 1, R2}, {NUMPAD_9, "9", KEYPAD + 2, R2},
    {NUMPAD_ADD, "+", KEYPAD + 3, R2, 1, 2},
    {NUMPAD_4, "4", KEYPAD, R3}, {NUMPAD_5, "5", KEYPAD + 1, R3}, {NUMPAD_6, "6", KEYPAD + 2, R3},
    {NUMPAD_1, "1", KEYPAD, R4}, {NUMPAD_2, "2", KEYPAD + 1, R4}, {NUMPAD_3, "3", KEYPAD + 2, R4},
    {NUMPAD_ENTER, "Enter", KEYPAD + 3, R4, 1, 2},
    {NUMPAD_0, "0", KEYPAD, R5, 2}, {NUMPAD_PERIOD, ".", KEYPAD + 2, R5},
});
// clang-format on
static_assert(KEYS.size() == KeyTable::KEYS);
}  // namespace

std::span<const PlannedKey> KeyboardPlan::getKeys() { return KEYS; }
}  // namespace Gui::ComputerInput
