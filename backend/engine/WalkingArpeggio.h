#pragma once

#include <cstddef>
#include <cstdint>

#include "backend/engine/Arpeggio.h"

namespace Backend::ArpeggioManagement
{
/// Plays the held notes one after another in order of pitch, one on each beat. A new note gets its place in the order
/// at once. The first note sounds at once if no other arpeggio runs. A note that sounds when its key is released ends
/// at its time, or at once if all keys are released.
class WalkingArpeggio : public Arpeggio
{
public:
    enum class Order { rising, falling };
    /// What happens to a press of a note whose key is down already.
    enum class EqualKeys { ignored, kept };

    void addNote(ArpeggioVoice& voice, const MidiEngine::OrvMidiMessage& event) final;
    void process(ArpeggioVoice& voice, std::int32_t ppq) final;

protected:
    WalkingArpeggio(const ArpeggioSetting& setting, Order noteOrder, EqualKeys equalKeys);

    /// Advances `current` from the note that has ended. After the last note the first one follows, and the sequence
    /// advances by a node.
    virtual void step(ArpeggioVoice& voice);
    void rewind() override { current = NOWHERE; }

    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);
    std::size_t current = NOWHERE;  // the note that sounds, or is played next

private:
    void press(const MidiEngine::OrvMidiMessage& event);
    void release(ArpeggioVoice& voice, const MidiEngine::OrvMidiMessage& event);
    void erase(std::size_t place);
    bool isBefore(int note, int other) const { return order == Order::rising ? note < other : note > other; }

    Order order;
    EqualKeys equal;
};
}  // namespace Backend::ArpeggioManagement
