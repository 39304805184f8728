#include "host/terminal/ConsoleKeys.h"

#include <algorithm>
#include <utility>

namespace Host
{
namespace
{
using enum Key::Code;

/// A virtual key code of the system, and the code of the key.
struct Pair {
    int virtualKey;
    std::int32_t code;
};

constexpr int SHIFT = 16;
constexpr int RIGHT_SHIFT_SCAN_CODE = 0x36;

// By themselves and as keys that are "extended".
constexpr Pair PLAIN[] = {{18, LEFT_ALT},
                          {33, NUMPAD_9},
                          {34, NUMPAD_3},
                          {35, NUMPAD_1},
                          {36, NUMPAD_7},
                          {37, NUMPAD_4},
                          {38, NUMPAD_8},
                          {39, NUMPAD_6},
                          {40, NUMPAD_2},
                          {12, NUMPAD_5},
                          {45, NUMPAD_0},
                          {46, NUMPAD_PERIOD},
                          {226, RIGHT_OF_LEFT_SHIFT}};
constexpr Pair EXTENDED[] = {{13, NUMPAD_ENTER}, {17, RIGHT_CONTROL}, {18, RIGHT_ALT}, {44, PRINT_SCREEN}};

// As they are: Backspace, Tab, Enter, Control, Pause, Caps Lock, Escape, Space to Down, Insert, Delete, digits,
// letters, the Windows keys and Menu, the keypad, F1 to F12, the locks, the signs.
constexpr std::pair<int, int> SAME[] = {{8, 9},    {13, 13},   {16, 17},   {19, 20},   {27, 27},
                                        {32, 40},  {45, 46},   {48, 57},   {65, 90},   {91, 93},
                                        {96, 107}, {109, 123}, {144, 145}, {186, 192}, {219, 222}};

template <std::size_t size>
std::int32_t find(const Pair (&pairs)[size], int virtualKey)
{
    const auto* found = std::ranges::find(pairs, virtualKey, &Pair::virtualKey);
    return found == std::end(pairs) ? -1 : found->code;
}

std::int32_t codeOf(const ConsoleKey& event)
{
    if (event.virtualKey == SHIFT) return event.scanCode == RIGHT_SHIFT_SCAN_CODE ? RIGHT_SHIFT : LEFT_SHIFT;
    const auto code = event.isExtended ? find(EXTENDED, event.virtualKey) : find(PLAIN, event.virtualKey);
    if (code != -1) return code;
    const bool isSame = std::ranges::any_of(
        SAME, [&](const auto& range) { return event.virtualKey >= range.first && event.virtualKey <= range.second; });
    return isSame ? event.virtualKey : -1;
}
}  // namespace

std::optional<KeyCommand> ConsoleKeys::receive(const ConsoleKey& event)
{
    const std::int32_t code = codeOf(event);
    if (code == -1) return std::nullopt;
    const auto held = std::ranges::find(down, code, &Key::keyCode);
    if (!event.isDown) {
        if (held == down.end()) return std::nullopt;
        const Key key = *held;
        down.erase(held);
        return KeyCommand{PressAction::up, key};
    }
    const bool isModifier = modifierOf(code) != nullptr;
    const Key key{.keyCode = code,
                  .shift = event.shift && !isModifier,
                  .control = event.control && !isModifier,
                  .alt = event.alt && !isModifier};
    if (held != down.end()) return KeyCommand{PressAction::repeat, key};
    down.push_back(key);
    return KeyCommand{PressAction::down, key};
}

std::vector<KeyCommand> ConsoleKeys::release()
{
    std::vector<KeyCommand> commands;
    for (const Key& key : std::exchange(down, {})) commands.push_back({PressAction::up, key});
    return commands;
}
}  // namespace Host
