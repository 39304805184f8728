#pragma once

#include "backend/model/KeyConfigurationMap.h"

namespace Backend::ComputerInput
{
/// What the keys of the computer do: the content of a program's section.
struct KeyBindings {
    KeyConfigurationMap keys;
    bool useKeyUpMod = false;  ///< a key is released with the modifiers held then; otherwise without any

    /// No keys, released without modifiers.
    void clear() { *this = {}; }

    bool operator==(const KeyBindings&) const = default;
};
}  // namespace Backend::ComputerInput
