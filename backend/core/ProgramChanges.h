#pragma once

#include <map>
#include <optional>
#include <utility>

#include "backend/model/ProgramChangeInput.h"

namespace Backend
{
/// The MIDI program changes of inputs, with the bank that each channel of each input has selected.
class ProgramChanges
{
public:
    /// Forgets the banks.
    void setInput(const ProgramChangeInput& newInput)
    {
        input = newInput;
        banks.clear();
    }
    const ProgramChangeInput& getInput() const { return input; }

    /// The number of a program for an event that `ProgramChangeInput::takes`: (MSB x 128 + LSB) x 128 + program; none
    /// for the selection of a bank.
    std::optional<int> take(const MidiEngine::OrvMidiMessage& event)
    {
        Bank& bank = banks[{event.getInput(), event.getChannel()}];
        if (event.isProgramChange()) return (bank.msb * 128 + bank.lsb) * 128 + event.getD1();
        (event.getD1() == ProgramChangeInput::BANK_MSB ? bank.msb : bank.lsb) = event.getD2();
        return std::nullopt;
    }

private:
    struct Bank {
        int msb = 0;
        int lsb = 0;
    };

    ProgramChangeInput input;
    std::map<std::pair<int, int>, Bank> banks;  // by input and channel
};
}  // namespace Backend
