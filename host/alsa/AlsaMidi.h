#pragma once

#include <string>

#include "host/alsa/MidiDevices.h"

namespace Host
{
/// The devices of the ALSA sequencer through RtMidi. A device's address is RtMidi's whole name of it.
class AlsaMidi final : public MidiDevices
{
public:
    /// `name` is what our clients of the sequencer are called.
    explicit AlsaMidi(std::string name);

    bool isPossible() const override { return hasSequencer; }
    bool haveChanged() override;
    std::vector<MidiDevice> findSources() override;
    std::vector<MidiDevice> findSinks() override;
    std::unique_ptr<MidiSource> openSource(const MidiDevice& device, Arrived arrived) override;
    std::unique_ptr<MidiSink> openSink(const MidiDevice& device) override;

private:
    const std::string clientName;
    const bool hasSequencer;
    std::string clients;  // the sequencer's own list of them, as last seen
};

/// RtMidi's name of a device without the address behind it, which changes from one start to the next:
/// "Keys:Keys MIDI 1 24:0" is "Keys:Keys MIDI 1".
std::string withoutAddress(const std::string& name);
}  // namespace Host
