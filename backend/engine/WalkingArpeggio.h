#pragma once

#include <cstddef>
#include <cstdint>

#include "backend/engine/Arpeggio.h"

namespace Backend::ArpeggioManagement
{
/// Walks over the held notes in order of pitch, one a beat; a new key takes its place at once, also in the midst of a
/// pass. The first note after silence needs no beat. What sounds ends at its time also when its key is up, or at once
/// when all are.
class WalkingArpeggio : public Arpeggio
{
public:
    enum class Order { rising, falling };
    /// What a press of a note does whose key is down already.
    enum class EqualKeys { ignored, kept };

    void addNote(ArpeggioVoice& voice, const MidiEngine::OrvMidiMessage& event) final;
    void process(ArpeggioVoice& voice, std::int32_t ppq) final;

protected:
    WalkingArpeggio(const ArpeggioSetting& setting, Order noteOrder, EqualKeys equalKeys);

    /// Moves `current` on from a note that stays for the moment. From the last it goes to the first, and the sequence
    /// moves on: a node lasts one pass.
    virtual void step(ArpeggioVoice& voice);
    void rewind() override { current = NOWHERE; }

    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);
    std::size_t current = NOWHERE;  // the note that the walk stands on

private:
    void press(const MidiEngine::OrvMidiMessage& event);
    void release(ArpeggioVoice& voice, const MidiEngine::OrvMidiMessage& event);
    void erase(std::size_t place);
    bool isBefore(int note, int other) const { return order == Order::rising ? note < other : note > other; }

    Order order;
    EqualKeys equal;
};
}  // namespace Backend::ArpeggioManagement
