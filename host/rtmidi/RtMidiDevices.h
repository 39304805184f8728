#pragma once

#include <string>
#include <vector>

#include "host/devices/MidiDevices.h"

namespace Host
{
/// The devices that RtMidi finds through one of its interfaces.
class RtMidiDevices : public MidiDevices
{
public:
    std::vector<MidiDevice> findSources() final;
    std::vector<MidiDevice> findSinks() final;
    std::unique_ptr<MidiSource> openSource(const MidiDevice& device, Arrived arrived) final;
    std::unique_ptr<MidiSink> openSink(const MidiDevice& device) final;

protected:
    /// `rtMidiApi` is RtMidi's number of the interface (`RtMidi::Api`), `name` the name of our clients of it.
    RtMidiDevices(int rtMidiApi, std::string name) : api(rtMidiApi), clientName(std::move(name)) {}

    /// False if there are none. RtMidi, which would say so on standard error, is not called then.
    virtual bool hasSources() const = 0;
    virtual bool hasSinks() const = 0;

    /// The devices of RtMidi's port names, in the same order. A port without an address is left out.
    virtual std::vector<MidiDevice> toDevices(const std::vector<std::string>& portNames) const = 0;

    const std::string& getClientName() const { return clientName; }

private:
    template <class Midi>
    struct Access;

    const int api;
    const std::string clientName;
};
}  // namespace Host
