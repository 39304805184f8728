#include "keyboardhook/KeyTable.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <string>

#include "backend/values/Key.h"

namespace
{
constexpr int ABOVE_LINUX = 8;  // what the X server adds to the numbers of Linux

std::string nameAt(int linuxCode)
{
    return Key{.keyCode = KeyTable::virtualKeyAt(linuxCode + ABOVE_LINUX)}.toXmlString();
}
}  // namespace

TEST(KeyTable, HasEveryKeyOfTheBoardOnce)
{
    EXPECT_EQ(KeyTable::PLACES.size(), 105u);
    for (const auto& [scanCode, virtualKey] : KeyTable::PLACES) {
        EXPECT_EQ(KeyTable::virtualKeyAt(scanCode), virtualKey);
        EXPECT_EQ(KeyTable::scanCodeOf(virtualKey), scanCode);
    }
}

TEST(KeyTable, HasAPlaceForEveryKeyWithAName)
{
    for (std::int32_t code = 0; code < 256; ++code) {
        const std::string name = Key{.keyCode = code}.toXmlString();
        const bool isOnTheBoard = KeyTable::scanCodeOf(code) >= 0;
        EXPECT_EQ(isOnTheBoard, name != "Unknown" || code == KeyTable::KEY_RIGHT_OF_LEFT_SHIFT) << code << ' ' << name;
    }
}

TEST(KeyTable, NamesKeysByTheirPlaces)
{
    const std::pair<int, std::string> LETTERS[] = {
        {KEY_1, "1234567890"}, {KEY_Q, "QWERTYUIOP"}, {KEY_A, "ASDFGHJKL"}, {KEY_Z, "ZXCVBNM"}};
    for (const auto& [first, row] : LETTERS)
        for (std::size_t i = 0; i < row.size(); ++i) EXPECT_EQ(nameAt(first + static_cast<int>(i)), row.substr(i, 1));

    const std::pair<int, std::string> OTHERS[] = {{KEY_ESC, "Escape"},
                                                  {KEY_F1, "F1"},
                                                  {KEY_F10, "F10"},
                                                  {KEY_F11, "F11"},
                                                  {KEY_F12, "F12"},
                                                  {KEY_SYSRQ, "Print Screen"},
                                                  {KEY_SCROLLLOCK, "Scroll Lock"},
                                                  {KEY_PAUSE, "Pause"},
                                                  {KEY_GRAVE, "Quote"},
                                                  {KEY_MINUS, "Minus"},
                                                  {KEY_EQUAL, "Equals"},
                                                  {KEY_BACKSPACE, "Backspace"},
                                                  {KEY_TAB, "Tab"},
                                                  {KEY_LEFTBRACE, "Left Bracket"},
                                                  {KEY_RIGHTBRACE, "Right Bracket"},
                                                  {KEY_BACKSLASH, "Backslash"},
                                                  {KEY_CAPSLOCK, "Caps Lock"},
                                                  {KEY_SEMICOLON, "Semicolon"},
                                                  {KEY_APOSTROPHE, "Apostrophe"},
                                                  {KEY_ENTER, "Enter"},
                                                  {KEY_LEFTSHIFT, "Left Shift"},
                                                  {KEY_COMMA, "Comma"},
                                                  {KEY_DOT, "Period"},
                                                  {KEY_SLASH, "Slash"},
                                                  {KEY_RIGHTSHIFT, "Right Shift"},
                                                  {KEY_LEFTCTRL, "Left Control"},
                                                  {KEY_LEFTMETA, "Left Windows"},
                                                  {KEY_LEFTALT, "Left Alt"},
                                                  {KEY_SPACE, "Space"},
                                                  {KEY_RIGHTALT, "Right Alt"},
                                                  {KEY_RIGHTMETA, "Right Windows"},
                                                  {KEY_COMPOSE, "Windows Key"},
                                                  {KEY_RIGHTCTRL, "Right Control"},
                                                  {KEY_INSERT, "Insert"},
                                                  {KEY_HOME, "Home"},
                                                  {KEY_PAGEUP, "Page Up"},
                                                  {KEY_DELETE, "Delete"},
                                                  {KEY_END, "End"},
                                                  {KEY_PAGEDOWN, "Page Down"},
                                                  {KEY_UP, "Up"},
                                                  {KEY_LEFT, "Left"},
                                                  {KEY_DOWN, "Down"},
                                                  {KEY_RIGHT, "Right"},
                                                  {KEY_NUMLOCK, "Num Lock"},
                                                  {KEY_KPSLASH, "Numpad /"},
                                                  {KEY_KPASTERISK, "Numpad *"},
                                                  {KEY_KPMINUS, "Numpad -"},
                                                  {KEY_KP7, "Numpad 7"},
                                                  {KEY_KP9, "Numpad 9"},
                                                  {KEY_KPPLUS, "Numpad +"},
                                                  {KEY_KP4, "Numpad 4"},
                                                  {KEY_KP5, "Numpad 5"},
                                                  {KEY_KP6, "Numpad 6"},
                                                  {KEY_KP1, "Numpad 1"},
                                                  {KEY_KP3, "Numpad 3"},
                                                  {KEY_KP0, "Numpad 0"},
                                                  {KEY_KPDOT, "Numpad ."},
                                                  {KEY_KPENTER, "Numpad Enter"}};
    for (const auto& [linuxCode, name] : OTHERS) EXPECT_EQ(nameAt(linuxCode), name);
}

TEST(KeyTable, KnowsNothingBeyondTheBoard)
{
    EXPECT_EQ(KeyTable::virtualKeyAt(KEY_VOLUMEUP + ABOVE_LINUX), -1);
    EXPECT_EQ(KeyTable::virtualKeyAt(-1), -1);
    EXPECT_EQ(KeyTable::virtualKeyAt(256), -1);
    EXPECT_EQ(KeyTable::scanCodeOf(-1), -1);
    EXPECT_EQ(KeyTable::scanCodeOf(0), -1);
    EXPECT_EQ(KeyTable::scanCodeOf(0x100 + 'A'), -1);
}
