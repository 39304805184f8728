#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include <jack/jack.h>

#include "host/clock/Clock.h"
#include "host/ports/Port.h"
#include "host/synthesizer/Synthesizer.h"

namespace Host
{
/// One MIDI port of our client, and the foreign port that it is joined to while enabled, if it stands for one.
template <class PortType>
struct JackMidiPort {
    PortType* port;
    jack_port_t* own;  ///< null if it could not be registered
    std::string foreign;
};

/// Who hears the MIDI clock at an input: the host's, null for nobody. `start` is the stamp of the period's first frame.
struct JackClockEar {
    Clock* clock;
    int input;
    std::uint32_t start;

    void hear(const ShortMessage& message, jack_nframes_t frame) const
    {
        if (clock != nullptr) clock->hearInGraph(input, message, start + frame);
    }
};

/// Takes what arrived in this period; true if there was something for others than the clock. Process callback.
bool receive(const JackMidiPort<InputPort>& input, jack_nframes_t frames, const JackClockEar& ear);

/// Writes what was played, each message at its frame. `start` is the stamp of the period's first frame. What the
/// port's buffer cannot hold waits for the next period. Process callback.
void deliver(const JackMidiPort<OutputPort>& output, std::uint32_t start, jack_nframes_t frames);

/// The built-in synthesizer as two audio ports of our client.
class JackSynthesizer
{
public:
    /// Registers the audio ports. Throws std::runtime_error with one line for the user if it cannot sound.
    JackSynthesizer(jack_client_t* client, OutputPort& output);

    /// Joins the two to the sound card's; false if there is none. After the client was activated.
    bool connectToSoundCard(jack_client_t* client) const;

    /// Renders the period, each message at its frame. Process callback.
    void render(std::uint32_t start, jack_nframes_t frames);

private:
    OutputPort& port;
    Synthesizer synthesizer;
    jack_port_t* left;
    jack_port_t* right;
};
}  // namespace Host
