#pragma once

#include "backend/engine/Arpeggio.h"

namespace Backend::ArpeggioManagement::Arpeggios
{
/// All held notes together, played anew on each beat. The first after silence sounds at once, later ones wait for the
/// beat; when all keys are up the chord ends at once.
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
