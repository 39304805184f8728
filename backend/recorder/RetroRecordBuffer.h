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
/// Milliseconds of the host's clock, which wraps round; the difference of two counts.
using Milliseconds = std::uint32_t;

/// The record of one output: what was played lately, in a chain of files that drops the oldest. A disk that is full or
/// gone costs the events of that time and nothing else. The recorder's thread.
class ORV_API RetroRecordBuffer
{
public:
    /// `outputName` is fit for a file name. `fileSize` bytes go into each of the chain's files. Nothing is recorded
    /// before `start`.
    RetroRecordBuffer(const std::filesystem::path& folder, std::string outputName, Restore restore, int fileSize);

    const std::string& getOutputName() const { return outputName; }
    /// How much of its room is taken, 0 to 100 percent. At 100 the oldest tenth goes for what is played next.
    int getFill() const;
    void setFileSize(int bytes) { fileSize = bytes; }

    /// The next event's silence is counted from `now`. What was played before that but arrives later comes without one.
    void start(Milliseconds now);

    /// A silence of more than seven seconds, or a time before the last event's, becomes seven seconds.
    void addEvent(const MidiEngine::MidiMessage& message, Milliseconds time);

    /// Gives what was added to the system.
    void flush();

    /// Makes a MIDI file "<stem>_<output name>.mid" of the record, or with "_0", "_1", ... after the name if that is
    /// taken, and empties the record. Where nothing was played there is no file. `now` is called when the record starts
    /// again.
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
    Milliseconds failed = 0;  // when the file was last tried in vain
    std::ofstream file;
    std::int64_t bytesInFile = 0;
    bool isFlushed = true;
};
}  // namespace Backend::RetroRecord
