#pragma once

#include "backend/persistence/PresetManager.h"

namespace Backend
{
/// The presets of the sections that have no manager of their own. They know nothing of each other.
struct PresetStores {
    PresetManager joystick{PresetSections::JOYSTICK};

    void refresh() { joystick.refresh(); }
};
}  // namespace Backend
