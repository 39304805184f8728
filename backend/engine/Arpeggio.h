#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "backend/engine/ArpeggioNote.h"
#include "backend/engine/ArpeggioVoice.h"
#include "backend/model/ArpeggioSetting.h"

namespace Backend::ArpeggioManagement
{
/// Holds the notes of a layer and plays them on the engine's pulse, in the pattern of its type. A key's end is the end
/// of its note: none sounds on when all keys are up. Beyond `ROOM_FOR_NOTES` keys it allocates. Time slice only.
class Arpeggio
{
public:
    static constexpr std::size_t ROOM_FOR_NOTES = 128;
    static constexpr std::int32_t NEVER = std::numeric_limits<std::int32_t>::max();

    explicit Arpeggio(const ArpeggioSetting& setting);
    virtual ~Arpeggio() = default;

    Arpeggio(const Arpeggio&) = delete;
    Arpeggio& operator=(const Arpeggio&) = delete;

    /// A note on or a note off from the layer. Nothing sounds before the next `process`.
    virtual void addNote(ArpeggioVoice& voice, const MidiEngine::OrvMidiMessage& event) = 0;

    /// The turn of a pulse.
    virtual void process(ArpeggioVoice& voice, std::int32_t ppq) = 0;

    /// The first pulse after `ppq` in which `process` may do anything, unless a note or a reset comes before; `NEVER`
    /// when idle.
    std::int32_t nextTurn(std::int32_t ppq, std::int32_t startTime) const;

    /// Ends what sounds, forgets all notes and sets the sequence back to its start.
    void stop(ArpeggioVoice& voice);

    /// The pulse of its last start, -1 while it is idle or waits for its first beat.
    std::int32_t getLastStart() const { return lastStart; }

protected:
    /// Whether the sounding notes end in that pulse.
    bool noteEnds(std::int32_t ppq, std::int32_t startTime) const;
    bool onBeat(std::int32_t ppq, std::int32_t startTime) const;

    void startNote(ArpeggioVoice& voice, ArpeggioNote& note, std::int32_t ppq);
    void start(ArpeggioVoice& voice, std::int32_t ppq);

    /// Back to the start of the pattern.
    virtual void rewind() {}

    std::vector<ArpeggioNote> notes;
    std::int32_t lastStart = -1;

private:
    std::int32_t beat;
    std::int32_t length;
    std::int32_t lastNoteOn = -1;
};

/// The arpeggio that plays so.
std::unique_ptr<Arpeggio> createArpeggio(const ArpeggioSetting& setting);
}  // namespace Backend::ArpeggioManagement
