#include "gui/keyboard/KeyReading.h"

#include <QKeyEvent>
#include <algorithm>

#include "keyboardhook/KeyTable.h"

namespace Gui
{
namespace
{
struct Meaning {
    int key;  ///< of Qt::Key
    int code;
};

// clang-format off
constexpr Meaning MEANINGS[] = {
    {Qt::Key_Shift, 16}, {Qt::Key_Control, 17}, {Qt::Key_Alt, 164}, {Qt::Key_AltGr, 165}, {Qt::Key_Meta, 91},
    {Qt::Key_Super_L, 91}, {Qt::Key_Super_R, 92}, {Qt::Key_Menu, 93},
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9}, {Qt::Key_Backtab, 9}, {Qt::Key_Return, 13}, {Qt::Key_Enter, 226},
    {Qt::Key_Pause, 19}, {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, 27}, {Qt::Key_Space, 32}, {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34}, {Qt::Key_End, 35}, {Qt::Key_Home, 36}, {Qt::Key_Left, 37}, {Qt::Key_Up, 38},
    {Qt::Key_Right, 39}, {Qt::Key_Down, 40}, {Qt::Key_Insert, 45}, {Qt::Key_Delete, 46}, {Qt::Key_Print, 5},
    {Qt::Key_NumLock, 144}, {Qt::Key_ScrollLock, 145},
    {Qt::Key_Exclam, '1'}, {Qt::Key_At, '2'}, {Qt::Key_NumberSign, '3'}, {Qt::Key_Dollar, '4'},
    {Qt::Key_Percent, '5'}, {Qt::Key_AsciiCircum, '6'}, {Qt::Key_Ampersand, '7'}, {Qt::Key_Asterisk, '8'},
    {Qt::Key_ParenLeft, '9'}, {Qt::Key_ParenRight, '0'},
    {Qt::Key_Semicolon, 186}, {Qt::Key_Colon, 186}, {Qt::Key_Equal, 187}, {Qt::Key_Plus, 187}, {Qt::Key_Comma, 188},
    {Qt::Key_Less, 188}, {Qt::Key_Minus, 189}, {Qt::Key_Underscore, 189}, {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190}, {Qt::Key_Slash, 191}, {Qt::Key_Question, 191}, {Qt::Key_QuoteLeft, 192},
    {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219}, {Qt::Key_BraceLeft, 219}, {Qt::Key_Backslash, 220},
    {Qt::Key_Bar, 220}, {Qt::Key_BracketRight, 221}, {Qt::Key_BraceRight, 221}, {Qt::Key_Apostrophe, 222},
    {Qt::Key_QuoteDbl, 222},
};

// The keys with another meaning on the keypad.
constexpr Meaning KEYPAD[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107}, {Qt::Key_Minus, 109}, {Qt::Key_Period, 110}, {Qt::Key_Comma, 110},
    {Qt::Key_Slash, 111}, {Qt::Key_Enter, 226}, {Qt::Key_Return, 226},
    // Without Num Lock
    {Qt::Key_Insert, 96}, {Qt::Key_End, 97}, {Qt::Key_Down, 98}, {Qt::Key_PageDown, 99}, {Qt::Key_Left, 100},
    {Qt::Key_Clear, 101}, {Qt::Key_Right, 102}, {Qt::Key_Home, 103}, {Qt::Key_Up, 104}, {Qt::Key_PageUp, 105},
    {Qt::Key_Delete, 110},
};
// clang-format on

template <std::size_t SIZE>
int findCode(const Meaning (&meanings)[SIZE], int key)
{
    const auto* const found = std::ranges::find(meanings, key, &Meaning::key);
    return found == std::end(meanings) ? -1 : found->code;
}

int codeByMeaning(int key, bool onKeypad)
{
    constexpr int NUMPAD_0 = 96;
    constexpr int F1 = 112;
    const bool isDigit = key >= Qt::Key_0 && key <= Qt::Key_9;
    if (onKeypad && isDigit) return NUMPAD_0 + key - Qt::Key_0;
    if (const int code = onKeypad ? findCode(KEYPAD, key) : -1; code >= 0) return code;
    if (isDigit || (key >= Qt::Key_A && key <= Qt::Key_Z)) return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return F1 + key - Qt::Key_F1;
    return findCode(MEANINGS, key);
}
}  // namespace

Key readKey(const QKeyEvent& event)
{
    const auto held = event.modifiers();
    const auto place = event.nativeScanCode();
    return {.keyCode = place != 0 ? KeyTable::virtualKeyAt(place)
                                  : codeByMeaning(event.key(), held.testFlag(Qt::KeypadModifier)),
            .shift = held.testFlag(Qt::ShiftModifier),
            .control = held.testFlag(Qt::ControlModifier),
            .alt = held.testFlag(Qt::AltModifier) || held.testFlag(Qt::GroupSwitchModifier),
            .win = held.testFlag(Qt::MetaModifier)};
}
}  // namespace Gui
