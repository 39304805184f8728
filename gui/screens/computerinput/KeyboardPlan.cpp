#include "gui/screens/computerinput/KeyboardPlan.h"

#include <array>

#include "keyboardhook/KeyTable.h"

namespace Gui::ComputerInput
{
namespace
{
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
    {27, "Esc", 0, R0},
    {112, "F1", 2, R0}, {113, "F2", 3, R0}, {114, "F3", 4, R0}, {115, "F4", 5, R0},
    {116, "F5", 6.5F, R0}, {117, "F6", 7.5F, R0}, {118, "F7", 8.5F, R0}, {119, "F8", 9.5F, R0},
    {120, "F9", 11, R0}, {121, "F10", 12, R0}, {122, "F11", 13, R0}, {123, "F12", 14, R0},
    {5, "Print", NAVIGATION, R0}, {145, "Scroll", NAVIGATION + 1, R0}, {19, "Pause", NAVIGATION + 2, R0},

    {192, "`", 0, R1}, {'1', "1", 1, R1}, {'2', "2", 2, R1}, {'3', "3", 3, R1}, {'4', "4", 4, R1}, {'5', "5", 5, R1},
    {'6', "6", 6, R1}, {'7', "7", 7, R1}, {'8', "8", 8, R1}, {'9', "9", 9, R1}, {'0', "0", 10, R1},
    {189, "-", 11, R1}, {187, "=", 12, R1}, {8, "Backspace", 13, R1, 2},

    {9, "Tab", 0, R2, 1.5F}, {'Q', "Q", 1.5F, R2}, {'W', "W", 2.5F, R2}, {'E', "E", 3.5F, R2}, {'R', "R", 4.5F, R2},
    {'T', "T", 5.5F, R2}, {'Y', "Y", 6.5F, R2}, {'U', "U", 7.5F, R2}, {'I', "I", 8.5F, R2}, {'O', "O", 9.5F, R2},
    {'P', "P", 10.5F, R2}, {219, "[", 11.5F, R2}, {221, "]", 12.5F, R2}, {220, "\\", 13.5F, R2, 1.5F},

    {20, "Caps", 0, R3, 1.75F}, {'A', "A", 1.75F, R3}, {'S', "S", 2.75F, R3}, {'D', "D", 3.75F, R3},
    {'F', "F", 4.75F, R3}, {'G', "G", 5.75F, R3}, {'H', "H", 6.75F, R3}, {'J', "J", 7.75F, R3}, {'K', "K", 8.75F, R3},
    {'L', "L", 9.75F, R3}, {186, ";", 10.75F, R3}, {222, "'", 11.75F, R3}, {13, "Enter", 12.75F, R3, 2.25F},

    {16, "Shift", 0, R4, 1.25F}, {KeyTable::KEY_RIGHT_OF_LEFT_SHIFT, "<", 1.25F, R4}, {'Z', "Z", 2.25F, R4},
    {'X', "X", 3.25F, R4}, {'C', "C", 4.25F, R4}, {'V', "V", 5.25F, R4}, {'B', "B", 6.25F, R4}, {'N', "N", 7.25F, R4},
    {'M', "M", 8.25F, R4}, {188, ",", 9.25F, R4}, {190, ".", 10.25F, R4}, {191, "/", 11.25F, R4},
    {1, "Shift", 12.25F, R4, 2.75F},

    {17, "Ctrl", 0, R5, 1.25F}, {91, "Win", 1.25F, R5, 1.25F}, {164, "Alt", 2.5F, R5, 1.25F},
    {32, "Space", 3.75F, R5, 6.25F}, {165, "Alt", 10, R5, 1.25F}, {92, "Win", 11.25F, R5, 1.25F},
    {93, "Menu", 12.5F, R5, 1.25F}, {225, "Ctrl", 13.75F, R5, 1.25F},

    {45, "Ins", NAVIGATION, R1}, {36, "Home", NAVIGATION + 1, R1}, {33, "PgUp", NAVIGATION + 2, R1},
    {46, "Del", NAVIGATION, R2}, {35, "End", NAVIGATION + 1, R2}, {34, "PgDn", NAVIGATION + 2, R2},
    {38, "Up", NAVIGATION + 1, R4},
    {37, "Left", NAVIGATION, R5}, {40, "Down", NAVIGATION + 1, R5}, {39, "Right", NAVIGATION + 2, R5},

    {144, "Num", KEYPAD, R1}, {111, "/", KEYPAD + 1, R1}, {106, "*", KEYPAD + 2, R1}, {109, "-", KEYPAD + 3, R1},
    {103, "7", KEYPAD, R2}, {104, "8", KEYPAD + 1, R2}, {105, "9", KEYPAD + 2, R2}, {107, "+", KEYPAD + 3, R2, 1, 2},
    {100, "4", KEYPAD, R3}, {101, "5", KEYPAD + 1, R3}, {102, "6", KEYPAD + 2, R3},
    {97, "1", KEYPAD, R4}, {98, "2", KEYPAD + 1, R4}, {99, "3", KEYPAD + 2, R4},
    {226, "Enter", KEYPAD + 3, R4, 1, 2},
    {96, "0", KEYPAD, R5, 2}, {110, ".", KEYPAD + 2, R5},
});
// clang-format on
static_assert(KEYS.size() == KeyTable::PLACES.size());
}  // namespace

std::span<const PlannedKey> KeyboardPlan::getKeys() { return KEYS; }
}  // namespace Gui::ComputerInput
