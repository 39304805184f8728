#pragma once

#include <string>

#include "host/rtmidi/RtMidiDevices.h"

namespace Host
{
/// The devices of the ALSA sequencer. The address of a device is its full name in RtMidi.
class AlsaMidi final : public RtMidiDevices
{
public:
    /// `name` is the name of our clients of the sequencer.
    explicit AlsaMidi(std::string name);

    std::string name() const override { return "ALSA"; }
    std::string description() const override { return "the ALSA sequencer"; }
    bool isAvailable() const override { return hasSequencer; }
    std::string whyUnavailable() const override
    {
        return "There is no JACK server and no ALSA sequencer, so no MIDI ports.";
    }
    bool hasVirtualPorts() const override { return true; }
    bool haveChanged() override;

private:
    bool hasSources() const override { return hasSequencer; }
    bool hasSinks() const override { return hasSequencer; }
    std::vector<MidiDevice> toDevices(const std::vector<std::string>& portNames) const override;

    const bool hasSequencer;
    std::string clients;  // the sequencer's list of clients at the last `haveChanged`
};

/// RtMidi's name of a device without the address at its end, which may change when the device is plugged in again:
/// "Keys:Keys MIDI 1 24:0" is "Keys:Keys MIDI 1".
std::string withoutAddress(const std::string& name);
}  // namespace Host
