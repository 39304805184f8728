#pragma once

#include <optional>
#include <string_view>

#include "backend/values/Key.h"

namespace Host
{
// The key of what a terminal sends; none if no key sends it.

/// Of a character, on a keyboard of the US layout: Shift for capitals and upper signs, Control with a letter.
std::optional<Key> keyOfCharacter(char character);

/// Of "ESC [", parameters and an ending, as xterm and the VT220 have them: "5;2" and "~" are Page Up with Shift. A
/// number or the ending says the key, the second number the modifiers.
std::optional<Key> keyOfSequence(std::string_view parameters, char ending);

/// Of "ESC [ [" and a letter: the Linux console's F1 to F5.
std::optional<Key> keyOfConsoleSequence(char letter);

/// Of "ESC O" and a letter: the keypad, the arrows and F1 to F4.
std::optional<Key> keyOfKeypad(char letter);
}  // namespace Host
