#include "keyboardhook/KeyTable.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <sstream>

#include "backend/values/Key.h"

constexpr int ABOVE_LINUX = 8;  // what the X server adds to the numbers of Linux

TEST(KeyTable, HasEveryKeyOfTheBoardOnceUnderItsNameAndNoOther)
{
    EXPECT_EQ(KeyTable::PLACES.size(), 105u);
    for (const auto& [scanCode, virtualKey] : KeyTable::PLACES) {
        EXPECT_EQ(KeyTable::virtualKeyAt(scanCode), virtualKey);
        EXPECT_EQ(KeyTable::scanCodeOf(virtualKey), scanCode);
    }
    for (std::int32_t code = 0; code < 256; ++code) {
        const std::string name = Key{.keyCode = code}.toXmlString();
        const bool isOnTheBoard = KeyTable::scanCodeOf(code) >= 0;
        EXPECT_EQ(isOnTheBoard, name != "Unknown" || code == KeyTable::KEY_RIGHT_OF_LEFT_SHIFT) << code << ' ' << name;
    }
    for (const int scanCode : {KEY_VOLUMEUP + ABOVE_LINUX, -1, 256})
        EXPECT_EQ(KeyTable::virtualKeyAt(scanCode), -1) << scanCode;
    for (const int virtualKey : {-1, 0, 0x100 + 'A'}) EXPECT_EQ(KeyTable::scanCodeOf(virtualKey), -1) << virtualKey;

    // The names of a code and of those that follow it.
    const std::pair<int, const char*> RUNS[] = {
        {KEY_ESC, "Escape,1,2,3,4,5,6,7,8,9,0,Minus,Equals,Backspace"},
        {KEY_TAB, "Tab,Q,W,E,R,T,Y,U,I,O,P,Left Bracket,Right Bracket,Enter,Left Control"},
        {KEY_A, "A,S,D,F,G,H,J,K,L,Semicolon,Apostrophe,Quote,Left Shift,Backslash"},
        {KEY_Z, "Z,X,C,V,B,N,M,Comma,Period,Slash,Right Shift,Numpad *,Left Alt,Space,Caps Lock"},
        {KEY_F1, "F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,Num Lock,Scroll Lock"},
        {KEY_KP7, "Numpad 7,Numpad 8,Numpad 9,Numpad -,Numpad 4,Numpad 5,Numpad 6,Numpad +"},
        {KEY_KP1, "Numpad 1,Numpad 2,Numpad 3,Numpad 0,Numpad ."},
        {KEY_F11, "F11,F12"},
        {KEY_KPENTER, "Numpad Enter,Right Control,Numpad /,Print Screen,Right Alt"},
        {KEY_HOME, "Home,Up,Page Up,Left,Right,End,Down,Page Down,Insert,Delete"},
        {KEY_PAUSE, "Pause"},
        {KEY_LEFTMETA, "Left Windows,Right Windows,Windows Key"}};
    for (const auto& [first, names] : RUNS) {
        std::istringstream list(names);
        int code = first;
        for (std::string name; std::getline(list, name, ','); ++code)
            EXPECT_EQ(Key{.keyCode = KeyTable::virtualKeyAt(code + ABOVE_LINUX)}.toXmlString(), name);
    }
}
