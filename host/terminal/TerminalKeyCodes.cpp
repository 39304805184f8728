#include "host/terminal/TerminalKeyCodes.h"

#include <algorithm>
#include <charconv>
#include <span>

namespace Host
{
namespace
{
using enum Key::Code;

/// A key by the character it types alone and with Shift.
struct Signs {
    char plain;
    char shifted;
    std::int32_t code;
};

constexpr Signs SIGNS[] = {{'1', '!', '1'},        {'2', '@', '2'},           {'3', '#', '3'},
                           {'4', '$', '4'},        {'5', '%', '5'},           {'6', '^', '6'},
                           {'7', '&', '7'},        {'8', '*', '8'},           {'9', '(', '9'},
                           {'0', ')', '0'},        {';', ':', SEMICOLON},     {'=', '+', EQUALS},
                           {',', '<', COMMA},      {'-', '_', MINUS},         {'.', '>', PERIOD},
                           {'/', '?', SLASH},      {'`', '~', QUOTE},         {'[', '{', LEFT_BRACKET},
                           {'\\', '|', BACKSLASH}, {']', '}', RIGHT_BRACKET}, {'\'', '"', APOSTROPHE}};

/// A key by the final letter or the number of its escape sequence.
struct Ending {
    int sign;
    std::int32_t code;
};

constexpr Ending LETTERS[] = {{'A', UP},  {'B', DOWN}, {'C', RIGHT}, {'D', LEFT}, {'H', HOME},
                              {'F', END}, {'P', F1},   {'Q', F2},    {'R', F3},   {'S', F4}};

constexpr Ending NUMBERS[] = {{1, HOME}, {2, INSERT}, {3, DELETE}, {4, END},  {5, PAGE_UP}, {6, PAGE_DOWN}, {7, HOME},
                              {8, END},  {11, F1},    {12, F2},    {13, F3},  {14, F4},     {15, F5},       {17, F6},
                              {18, F7},  {19, F8},    {20, F9},    {21, F10}, {23, F11},    {24, F12}};

// The keypad of a terminal in application keypad mode.
constexpr Ending KEYPAD[] = {{'j', NUMPAD_MULTIPLY}, {'k', NUMPAD_ADD},    {'m', NUMPAD_SUBTRACT},
                             {'n', NUMPAD_PERIOD},   {'o', NUMPAD_DIVIDE}, {'M', NUMPAD_ENTER}};

std::optional<Key> findEnding(std::span<const Ending> endings, int sign)
{
    const auto found = std::ranges::find(endings, sign, &Ending::sign);
    if (found == endings.end()) return std::nullopt;
    return Key{.keyCode = found->code};
}

int takeNumber(std::string_view& parameters)
{
    int number = 0;
    const auto [end, error] = std::from_chars(parameters.data(), parameters.data() + parameters.size(), number);
    parameters.remove_prefix(static_cast<std::size_t>(end - parameters.data()));
    if (parameters.starts_with(';')) parameters.remove_prefix(1);
    return error == std::errc() ? number : 0;
}
}  // namespace

std::optional<Key> keyOfCharacter(char character)
{
    if (character >= 'a' && character <= 'z') return Key{.keyCode = character - 'a' + 'A'};
    if (character >= 'A' && character <= 'Z') return Key{.keyCode = character, .shift = true};
    for (const Signs& signs : SIGNS) {
        if (character == signs.plain) return Key{.keyCode = signs.code};
        if (character == signs.shifted) return Key{.keyCode = signs.code, .shift = true};
    }
    if (character == ' ') return Key{.keyCode = SPACE};
    if (character == '\r' || character == '\n') return Key{.keyCode = ENTER};
    if (character == '\t') return Key{.keyCode = TAB};
    if (character == '\b' || character == '\x7F') return Key{.keyCode = BACKSPACE};
    if (character >= 1 && character <= 26) return Key{.keyCode = character - 1 + 'A', .control = true};
    return std::nullopt;
}

std::optional<Key> keyOfSequence(std::string_view parameters, char ending)
{
    if (ending == 'Z') return Key{.keyCode = TAB, .shift = true};
    const int number = takeNumber(parameters);
    auto key = ending == '~' ? findEnding(NUMBERS, number) : findEnding(LETTERS, ending);
    const int modifiers = takeNumber(parameters);
    if (!key || modifiers < 2) return key;
    key->shift = ((modifiers - 1) & 1) != 0;
    key->alt = ((modifiers - 1) & 2) != 0;
    key->control = ((modifiers - 1) & 4) != 0;
    return key;
}

std::optional<Key> keyOfConsoleSequence(char letter)
{
    if (letter < 'A' || letter > 'E') return std::nullopt;
    return Key{.keyCode = F1 + letter - 'A'};
}

std::optional<Key> keyOfKeypad(char letter)
{
    if (letter >= 'p' && letter <= 'y') return Key{.keyCode = NUMPAD_0 + letter - 'p'};
    const auto key = findEnding(KEYPAD, letter);
    return key ? key : findEnding(LETTERS, letter);
}
}  // namespace Host
