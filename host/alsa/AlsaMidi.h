#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <rtmidi/RtMidi.h>

#include "host/ports/Port.h"

namespace Host
{
/// True if there is an ALSA sequencer. Prints nothing.
bool alsaSequencerAnswers();

/// A device of the ALSA sequencer, or a port of our own that others may be joined to. What goes wrong is a `false`,
/// never an exception and never a word on standard error.
struct AlsaDevice {
    /// Its index among RtMidi's ports at the start; `VIRTUAL` for a port of our own.
    unsigned int number;
    std::string name;

    static constexpr unsigned int VIRTUAL = ~0u;
};

std::vector<AlsaDevice> findAlsaInputs(const std::string& clientName);
std::vector<AlsaDevice> findAlsaOutputs(const std::string& clientName);

/// RtMidi's name of a device without the address behind it, which changes from one start to the next:
/// "Keys:Keys MIDI 1 24:0" is "Keys:Keys MIDI 1".
std::string withoutAddress(const std::string& name);

/// Listens to one device while open.
class AlsaInput
{
public:
    using Arrived = std::function<void(const ShortMessage&)>;

    /// `arrived` is called on a thread of RtMidi.
    AlsaInput(AlsaDevice from, std::string client, Arrived arrived);

    bool open();
    void close() { midi.reset(); }

private:
    static void hear(double, std::vector<unsigned char>* bytes, void* self);

    const AlsaDevice device;
    const std::string clientName;
    const Arrived arrived;
    std::unique_ptr<RtMidiIn> midi;
};

/// Sends to one device while open.
class AlsaOutput
{
public:
    AlsaOutput(AlsaDevice to, std::string client) : device(std::move(to)), clientName(std::move(client)) {}

    bool open();
    void close() { midi.reset(); }

    /// May wait for the device.
    void send(const ShortMessage& message);

private:
    const AlsaDevice device;
    const std::string clientName;
    std::unique_ptr<RtMidiOut> midi;
};
}  // namespace Host
