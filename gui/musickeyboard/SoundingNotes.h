#pragma once

#include <array>
#include <map>

#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"

namespace Gui::Output
{
/// The notes that sound, derived from the events sent to the outputs. A note is counted per output and channel; it
/// sounds until every note-on has had its note-off.
class SoundingNotes
{
public:
    static constexpr int NOTES = 128;
    static constexpr int OUTPUTS = 128;  ///< the most there are

    /// A note-on with velocity 0 ends a note. "All sound off" and "all notes off" end those of a channel, a system
    /// reset those of an output. Other events are ignored.
    void take(const Backend::MidiEngine::OrvMidiMessage& event);

    void clear();
    void clearOutput(int output);
    /// Ends the notes of outputs that are disabled or missing.
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports);

    /// False for a note outside 0 to 127.
    bool isSounding(int note) const;

private:
    static constexpr int CHANNELS = 16;
    using Counts = std::array<int, CHANNELS * NOTES>;

    int& countOf(int output, int channel, int note);
    void start(int output, int channel, int note);
    void end(int output, int channel, int note);
    void clearChannel(int output, int channel);

    std::map<int, Counts> outputs;
    std::array<int, NOTES> sounding{};  // of all outputs and channels
};
}  // namespace Gui::Output
