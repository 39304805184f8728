#pragma once

#include "backend/engine/Arpeggio.h"

namespace Backend::ArpeggioManagement::Arpeggios
{
/// Plays all held notes together, again on each beat. The first chord sounds at once if no other arpeggio runs, keys
/// that are pressed later wait for the next beat. When all keys are released, the chord ends at once.
class ChordArpeggio final : public Arpeggio
{
public:
    using Arpeggio::Arpeggio;

    void addNote(ArpeggioVoice& voice, const MidiEngine::OrvMidiMessage& event) override;
    void process(ArpeggioVoice& voice, std::int32_t ppq) override;

private:
    void end(ArpeggioVoice& voice);
};
}  // namespace Backend::ArpeggioManagement::Arpeggios
