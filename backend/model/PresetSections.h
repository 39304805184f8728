#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace Backend
{
/// A section that has presets: their folder, and the root element of their files.
struct PresetSection {
    const char* folder;
    const char* rootElement;
};

namespace PresetSections
{
inline constexpr PresetSection COMPUTER_INPUT{"Computer Input Presets", "ComputerInput"};
inline constexpr PresetSection CONTROLS{"Control Presets", "Controls"};
inline constexpr PresetSection JOYSTICK{"Joystick Presets", "Joystick"};
inline constexpr PresetSection LAYERS{"Layer Presets", "Layers"};
inline constexpr PresetSection MIDI_INPUT{"Midi Input Presets", "MidiInput"};
inline constexpr PresetSection OSCILLATORS{"Oscillator Presets", "Oscillators"};

inline constexpr std::array ALL{COMPUTER_INPUT, CONTROLS, JOYSTICK, LAYERS, MIDI_INPUT, OSCILLATORS};

/// The index of a section in `ALL`.
constexpr std::size_t indexOf(const PresetSection& section)
{
    std::size_t index = 0;
    while (std::string_view(ALL[index].folder) != section.folder) ++index;
    return index;
}
}  // namespace PresetSections
}  // namespace Backend
