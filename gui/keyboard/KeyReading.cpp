#include "gui/keyboard/KeyReading.h"

#include <QKeyEvent>
#include <algorithm>

#include "keyboardhook/KeyTable.h"

namespace Gui
{
namespace
{
using enum Key::Code;

struct Meaning {
    int key;  ///< of Qt::Key
    int code;
};

// clang-format off
constexpr Meaning MEANINGS[] = {
    {Qt::Key_Shift, LEFT_SHIFT}, {Qt::Key_Control, LEFT_CONTROL}, {Qt::Key_Alt, LEFT_ALT}, {Qt::Key_AltGr, RIGHT_ALT},
    {Qt::Key_Meta, LEFT_WINDOWS}, {Qt::Key_Super_L, LEFT_WINDOWS}, {Qt::Key_Super_R, RIGHT_WINDOWS},
    {Qt::Key_Menu, MENU}, {Qt::Key_Backspace, BACKSPACE}, {Qt::Key_Tab, TAB}, {Qt::Key_Backtab, TAB},
    {Qt::Key_Return, ENTER}, {Qt::Key_Enter, NUMPAD_ENTER}, {Qt::Key_Pause, PAUSE}, {Qt::Key_CapsLock, CAPS_LOCK},
    {Qt::Key_Escape, ESCAPE}, {Qt::Key_Space, SPACE}, {Qt::Key_PageUp, PAGE_UP}, {Qt::Key_PageDown, PAGE_DOWN},
    {Qt::Key_End, END}, {Qt::Key_Home, HOME}, {Qt::Key_Left, LEFT}, {Qt::Key_Up, UP}, {Qt::Key_Right, RIGHT},
    {Qt::Key_Down, DOWN}, {Qt::Key_Insert, INSERT}, {Qt::Key_Delete, DELETE}, {Qt::Key_Print, PRINT_SCREEN},
    {Qt::Key_NumLock, NUM_LOCK}, {Qt::Key_ScrollLock, SCROLL_LOCK}, {Qt::Key_Exclam, '1'}, {Qt::Key_At, '2'},
    {Qt::Key_NumberSign, '3'}, {Qt::Key_Dollar, '4'}, {Qt::Key_Percent, '5'}, {Qt::Key_AsciiCircum, '6'},
    {Qt::Key_Ampersand, '7'}, {Qt::Key_Asterisk, '8'}, {Qt::Key_ParenLeft, '9'}, {Qt::Key_ParenRight, '0'},
    {Qt::Key_Semicolon, SEMICOLON}, {Qt::Key_Colon, SEMICOLON}, {Qt::Key_Equal, EQUALS}, {Qt::Key_Plus, EQUALS},
    {Qt::Key_Comma, COMMA}, {Qt::Key_Less, COMMA}, {Qt::Key_Minus, MINUS}, {Qt::Key_Underscore, MINUS},
    {Qt::Key_Period, PERIOD}, {Qt::Key_Greater, PERIOD}, {Qt::Key_Slash, SLASH}, {Qt::Key_Question, SLASH},
    {Qt::Key_QuoteLeft, QUOTE}, {Qt::Key_AsciiTilde, QUOTE}, {Qt::Key_BracketLeft, LEFT_BRACKET},
    {Qt::Key_BraceLeft, LEFT_BRACKET}, {Qt::Key_Backslash, BACKSLASH}, {Qt::Key_Bar, BACKSLASH},
    {Qt::Key_BracketRight, RIGHT_BRACKET}, {Qt::Key_BraceRight, RIGHT_BRACKET}, {Qt::Key_Apostrophe, APOSTROPHE},
    {Qt::Key_QuoteDbl, APOSTROPHE},
};

// The keys with another meaning on the keypad.
constexpr Meaning KEYPAD[] = {
    {Qt::Key_Asterisk, NUMPAD_MULTIPLY}, {Qt::Key_Plus, NUMPAD_ADD}, {Qt::Key_Minus, NUMPAD_SUBTRACT},
    {Qt::Key_Period, NUMPAD_PERIOD}, {Qt::Key_Comma, NUMPAD_PERIOD}, {Qt::Key_Slash, NUMPAD_DIVIDE},
    {Qt::Key_Enter, NUMPAD_ENTER}, {Qt::Key_Return, NUMPAD_ENTER},
    // Without Num Lock
    {Qt::Key_Insert, NUMPAD_0}, {Qt::Key_End, NUMPAD_1}, {Qt::Key_Down, NUMPAD_2}, {Qt::Key_PageDown, NUMPAD_3},
    {Qt::Key_Left, NUMPAD_4}, {Qt::Key_Clear, NUMPAD_5}, {Qt::Key_Right, NUMPAD_6}, {Qt::Key_Home, NUMPAD_7},
    {Qt::Key_Up, NUMPAD_8}, {Qt::Key_PageUp, NUMPAD_9}, {Qt::Key_Delete, NUMPAD_PERIOD},
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
