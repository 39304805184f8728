#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/ports/Port.h"

namespace Host
{
/// A device that sends to us, open for the lifetime of this object.
class MidiSource
{
public:
    virtual ~MidiSource() = default;
};

/// A device that we send to, open for the lifetime of this object.
class MidiSink
{
public:
    virtual ~MidiSink() = default;

    /// Sends a message. May wait for the device.
    virtual void send(const ShortMessage& message) = 0;
};

/// The MIDI devices of a machine. On failure the operations return nothing; they never throw and never print.
class MidiDevices
{
public:
    virtual ~MidiDevices() = default;

    /// The MIDI system, in a word and in a sentence for the user: "ALSA", "the ALSA sequencer".
    virtual std::string name() const = 0;
    virtual std::string description() const = 0;

    /// False if this machine has no MIDI system. Then `whyUnavailable` is a sentence for the user.
    virtual bool isAvailable() const = 0;
    virtual std::string whyUnavailable() const { return {}; }

    /// Whether programs can have ports of their own, to which others connect.
    virtual bool hasVirtualPorts() const = 0;

    /// True if devices may have been plugged in or unplugged since the last call. Cheap.
    virtual bool haveChanged() = 0;

    virtual std::vector<MidiDevice> findSources() = 0;
    virtual std::vector<MidiDevice> findSinks() = 0;

    /// Opens a device; null if that fails. A device whose address begins with a colon is a virtual port of our own,
    /// which others can connect to. `arrived` is called on a thread of the device.
    using Arrived = std::function<void(const ShortMessage&)>;
    virtual std::unique_ptr<MidiSource> openSource(const MidiDevice& device, Arrived arrived) = 0;
    virtual std::unique_ptr<MidiSink> openSink(const MidiDevice& device) = 0;
};
}  // namespace Host
