#pragma once

#include <cstdint>
#include <fstream>
#include <functional>
#include <string>
#include <system_error>

#include "api/RetroRecordReport.h"
#include "backend/recorder/RecordChain.h"
#include "backend/values/MidiMessage.h"
#include "platform/Export.h"

namespace Backend::RetroRecord
{
/// Milliseconds of the host's clock, which wraps; only differences are used.
using Milliseconds = std::uint32_t;

/// The record of one output: what was played lately, in a chain of files of which the oldest is dropped. If the disk is
/// full or missing, the events of that time are lost, nothing else. The recorder's thread.
class ORV_API RetroRecordBuffer
{
public:
    /// `outputName` must be valid in a file name. Each file of the chain gets `fileSize` bytes. Nothing is recorded
    /// before `start`.
    RetroRecordBuffer(const std::filesystem::path& folder, std::string outputName, Restore restore, int fileSize);

    const std::string& getOutputName() const { return outputName; }
    /// How full the record is, 0 to 100 percent. At 100 the oldest tenth is dropped for new events.
    int getFill() const;
    void setFileSize(int bytes) { fileSize = bytes; }

    /// The silence before the next event starts at `now`. Events that were played before that get no silence.
    void start(Milliseconds now);

    /// A silence of more than seven seconds, or a time before that of the last event, is recorded as seven seconds.
    void addEvent(const MidiEngine::MidiMessage& message, Milliseconds time);

    /// Writes the added events to the file.
    void flush();

    /// Writes the record as a MIDI file "<stem>_<output name>.mid", or with "_0", "_1", ... after the name if that
    /// exists, and empties the record. If nothing was played, no file is written. `now` is called when the record
    /// starts again.
    SavedRecord save(const std::string& stem, const std::function<Milliseconds()>& now);

private:
    bool isReady(Milliseconds time);
    bool openFile();
    void rollOver();
    int millisecondsSince(Milliseconds time) const;

    const std::string outputName;
    RecordChain chain;
    int fileSize;
    Milliseconds lastTime = 0;
    bool isFresh = true;      // no event since the start
    Milliseconds failed = 0;  // when the file last failed
    std::ofstream file;
    std::int64_t bytesInFile = 0;
    bool isFlushed = true;
};
}  // namespace Backend::RetroRecord
