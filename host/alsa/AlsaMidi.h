#pragma once

#include <string>

#include "host/alsa/MidiDevices.h"

namespace Host
{
/// The devices of the ALSA sequencer, through RtMidi. The address of a device is its full name in RtMidi.
class AlsaMidi final : public MidiDevices
{
public:
    /// `name` is the name of our clients of the sequencer.
    explicit AlsaMidi(std::string name);

    bool isAvailable() const override { return hasSequencer; }
    bool haveChanged() override;
    std::vector<MidiDevice> findSources() override;
    std::vector<MidiDevice> findSinks() override;
    std::unique_ptr<MidiSource> openSource(const MidiDevice& device, Arrived arrived) override;
    std::unique_ptr<MidiSink> openSink(const MidiDevice& device) override;

private:
    const std::string clientName;
    const bool hasSequencer;
    std::string clients;  // the sequencer's list of clients at the last `haveChanged`
};

/// RtMidi's name of a device without the address at its end, which may change when the device is plugged in again:
/// "Keys:Keys MIDI 1 24:0" is "Keys:Keys MIDI 1".
std::string withoutAddress(const std::string& name);
}  // namespace Host
