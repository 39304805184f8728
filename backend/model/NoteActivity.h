#pragma once

#include <array>
#include <bitset>
#include <cstddef>

namespace Backend::MidiEngine
{
/// The notes that are held, or were played since the last look, at three places of the signal path. A plain value.
struct NoteActivity {
    using Notes = std::bitset<128>;  ///< by note number
    static constexpr std::size_t ZONES = 128;
    static constexpr std::size_t LAYERS = 128;

    /// What comes to the layers, or goes to an output without them: the sounding notes behind the zones.
    Notes played;
    /// The same by the number of the zone.
    std::array<Notes, ZONES> zones;
    /// The notes that layers are sounding, by the number of the layer; each note as the layer took it, whatever it made
    /// of it. Layers beyond the last one are not reported.
    std::array<Notes, LAYERS> layers;
};
}  // namespace Backend::MidiEngine
