#pragma once

#include <string>

namespace Backend
{
/// The current program: number, name and tempo.
struct Program {
    static constexpr int LOWEST_TEMPO = 20;
    static constexpr int HIGHEST_TEMPO = 250;
    static constexpr int INTERNAL_TEMPO_SOURCE = -1;

    std::string name;
    int number = 0;                           ///< within the bank, from 0
    int tempo = 120;                          ///< beats per minute
    int tempoSource = INTERNAL_TEMPO_SOURCE;  ///< the input port whose MIDI clock sets the tempo, -1 for none

    bool operator==(const Program&) const = default;
};
}  // namespace Backend
