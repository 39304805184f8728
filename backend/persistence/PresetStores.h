#pragma once

#include "backend/persistence/PresetManager.h"

namespace Backend
{
/// The presets of all six sections. They know nothing of each other.
struct PresetStores {
    PresetManager oscillators{PresetSections::OSCILLATORS};
    PresetManager joystick{PresetSections::JOYSTICK};
    PresetManager computerInput{PresetSections::COMPUTER_INPUT};
    PresetManager midiInput{PresetSections::MIDI_INPUT};
    PresetManager controls{PresetSections::CONTROLS};
    PresetManager layers{PresetSections::LAYERS};

    void refresh()
    {
        for (PresetManager* store : {&oscillators, &joystick, &computerInput, &midiInput, &controls, &layers})
            store->refresh();
    }
};
}  // namespace Backend
