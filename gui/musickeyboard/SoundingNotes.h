#pragma once

#include <array>
#include <map>

#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"

namespace Gui::Output
{
/// Which notes sound, as far as the events on their way to the outputs tell. A note that several outputs or channels
/// play, or one of them several times, sounds until the last of them has ended it.
class SoundingNotes
{
public:
    static constexpr int NOTES = 128;

    /// A note on of velocity 0 ends a note; so do, for all of a channel, "all sound off" and "all notes off", and for
    /// all of an output a system reset. Other events change nothing.
    void take(const Backend::MidiEngine::OrvMidiMessage& event);

    void clear();
    /// Outputs that are off or not there end what they play without a word.
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
    void clearOutput(int output);

    std::map<int, Counts> outputs;
    std::array<int, NOTES> sounding{};  // of all outputs and channels
};
}  // namespace Gui::Output
