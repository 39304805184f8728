#pragma once

#include "backend/model/KeyConfigurationMap.h"

namespace Backend::ComputerInput
{
/// The bindings of the computer's keys: the content of the section.
struct KeyBindings {
    KeyConfigurationMap keys;
    bool useKeyUpMod = false;  ///< a released key is looked up with the modifiers held then; if false, without any

    /// Removes all keys; keys are released without modifiers.
    void clear() { *this = {}; }

    bool operator==(const KeyBindings&) const = default;
};
}  // namespace Backend::ComputerInput
