#pragma once

#include "backend/values/OrvMidiMessage.h"

namespace Backend
{
/// Whose MIDI program changes load programs of the bank.
struct ProgramChangeInput {
    static constexpr int OFF = -2;  ///< as an input: none
    static constexpr int ALL = -1;  ///< as an input or a channel

    static constexpr int BANK_MSB = 0;  ///< the controllers that select a bank
    static constexpr int BANK_LSB = 32;

    int input = OFF;
    int channel = ALL;  ///< from 0

    /// Whether the event is a program change or a bank select for the bank, and is not translated.
    constexpr bool takes(const MidiEngine::OrvMidiMessage& received) const
    {
        if (input == OFF || (input != ALL && input != received.getInput())) return false;
        if (channel != ALL && channel != received.getChannel()) return false;
        return received.isProgramChange() ||
               (received.isControllerChange() && (received.getD1() == BANK_MSB || received.getD1() == BANK_LSB));
    }
};
}  // namespace Backend
