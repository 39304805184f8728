#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/ports/Port.h"

namespace Host
{
/// One device that sends to us, heard from its making on until it goes.
class MidiSource
{
public:
    virtual ~MidiSource() = default;
};

/// One device that hears us, from its making on until it goes.
class MidiSink
{
public:
    virtual ~MidiSink() = default;

    /// May wait for the device.
    virtual void send(const ShortMessage& message) = 0;
};

/// The MIDI devices of a machine as they come and go. What goes wrong is an empty result, never an exception and never
/// a word on standard error.
class MidiDevices
{
public:
    virtual ~MidiDevices() = default;

    /// False if this machine can have none at all.
    virtual bool isPossible() const = 0;

    /// True if devices may have come or gone since the last call. Costs little.
    virtual bool haveChanged() = 0;

    virtual std::vector<MidiDevice> findSources() = 0;
    virtual std::vector<MidiDevice> findSinks() = 0;

    /// Opens a device; null if that fails. A device whose address begins with a colon is a port of our own that others
    /// may be joined to. `arrived` is called on a thread of the device.
    using Arrived = std::function<void(const ShortMessage&)>;
    virtual std::unique_ptr<MidiSource> openSource(const MidiDevice& device, Arrived arrived) = 0;
    virtual std::unique_ptr<MidiSink> openSink(const MidiDevice& device) = 0;
};
}  // namespace Host
