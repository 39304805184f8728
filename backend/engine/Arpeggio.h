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
/// The arpeggio of a layer: keeps the notes that are held on the layer and plays them on beats, in the order of its
/// type. When all keys are released, every note ends. It allocates only for more than `ROOM_FOR_NOTES` keys. Time slice
/// only.
class Arpeggio
{
public:
    static constexpr std::size_t ROOM_FOR_NOTES = 128;
    static constexpr std::int32_t NEVER = std::numeric_limits<std::int32_t>::max();

    explicit Arpeggio(const ArpeggioSetting& setting);
    virtual ~Arpeggio() = default;

    Arpeggio(const Arpeggio&) = delete;
    Arpeggio& operator=(const Arpeggio&) = delete;

    /// Adds the note of a note-on, or releases that of a note-off. Nothing sounds before the next `process`.
    virtual void addNote(ArpeggioVoice& voice, const MidiEngine::OrvMidiMessage& event) = 0;

    /// Plays pulse `ppq`: ends and starts notes. To be called for each pulse that `nextActivePulse` does not exclude.
    virtual void process(ArpeggioVoice& voice, std::int32_t ppq) = 0;

    /// The first pulse after `ppq` in which `process` may do anything, unless a note or a reset comes before; `NEVER`
    /// without notes.
    std::int32_t nextActivePulse(std::int32_t ppq, std::int32_t startTime) const;

    /// Ends the sounding notes, forgets all notes and sets the sequence back to its first node.
    void stop(ArpeggioVoice& voice);

    /// Whether it holds no note and plays none.
    bool isEmpty() const { return notes.empty(); }

    /// The pulse of the beat on which it last started notes, -1 while it is idle or waits for its first beat.
    std::int32_t getLastStart() const { return lastStart; }

protected:
    /// Whether the notes that sound end in that pulse.
    bool noteEnds(std::int32_t ppq, std::int32_t startTime) const;
    bool onBeat(std::int32_t ppq, std::int32_t startTime) const;

    void startNote(ArpeggioVoice& voice, ArpeggioNote& note, std::int32_t ppq);
    void start(ArpeggioVoice& voice, std::int32_t ppq);

    /// Sets the order back to its first note.
    virtual void rewind() {}

    std::vector<ArpeggioNote> notes;
    std::int32_t lastStart = -1;

private:
    std::int32_t beat;
    std::int32_t length;
    std::int32_t lastNoteOn = -1;
};

/// Makes an arpeggio of the type of `setting`.
std::unique_ptr<Arpeggio> createArpeggio(const ArpeggioSetting& setting);
}  // namespace Backend::ArpeggioManagement
