#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include <jack/jack.h>

#include "host/ports/Port.h"
#include "host/synthesizer/Sound.h"
#include "host/synthesizer/Synthesizer.h"

namespace Host
{
/// The built-in synthesizer as two audio ports of our client. It outlives the client and keeps its programs and
/// controllers.
class JackSynthesizer
{
public:
    JackSynthesizer(std::unique_ptr<Synthesizer> soundSource, OutputPort& output);

    // Control thread, while the process callback may run

    /// Volume and reverb, from the next period on.
    void setSound(const Sound& sound);

    /// Another synthesizer takes over with the next period, with the programs and controllers; notes that sound end.
    void replace(std::unique_ptr<Synthesizer> successor);

    /// Frees the one before, once the process callback has left it.
    void discardReplaced() { delete replaced.exchange(nullptr); }

    ~JackSynthesizer();
    JackSynthesizer(const JackSynthesizer&) = delete;
    JackSynthesizer& operator=(const JackSynthesizer&) = delete;

    static constexpr const char* LEFT = "Synthesizer Left";
    static constexpr const char* RIGHT = "Synthesizer Right";

    /// Registers the two ports. Throws std::runtime_error if the server refuses. Before the client is activated.
    void enter(jack_client_t* client);

    /// Connects the two ports to the sound card's. False if there is none. After the client was activated.
    bool connectToSoundCard(jack_client_t* client) const;

    /// Either port has a connection.
    bool isConnected() const;

    /// Renders the period, each message at its frame. Process callback.
    void render(std::uint32_t start, jack_nframes_t frames);

    /// The sample rate from the next period on. A rate outside 8000 to 96000 is ignored, and the synthesizer is out of
    /// tune. Process callback, or before the client is activated.
    void setRate(double sampleRate) { synthesizer->setRate(sampleRate); }

private:
    void takeChanges();

    OutputPort& port;
    std::unique_ptr<Synthesizer> synthesizer;  // of the process callback
    std::atomic<Synthesizer*> next{nullptr};   // owned, as the one below
    std::atomic<Synthesizer*> replaced{nullptr};
    std::atomic<int> volume{100};
    std::atomic<bool> reverb{true};
    jack_port_t* left = nullptr;
    jack_port_t* right = nullptr;
};
}  // namespace Host
