// From a key going down to the player: `build/release/bin/bench_keys [PRESSES]`. The key crosses to the backend's
// thread and to the engine's, and is played by the slice after the one that finds it, slices being a millisecond.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

#include "backend/core/OrvFactory.h"
#include "backend/core/OrvMessageManager.h"
#include "backend/input/computer/ComputerInputManager.h"
#include "backend/input/computer/DefaultKeys.h"
#include "backend/layers/LayerMessageManager.h"
#include "backend/midi/MidiPlayer.h"
#include "backend/persistence/XmlDocument.h"
#include "tests/stage/PrivateFolders.h"

using namespace Backend;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace
{
constexpr std::int32_t FIRST_PULSE = 50000000;

/// Notes when the last event came.
class Stopwatch final : public MidiEngine::MidiPlayer
{
public:
    std::atomic<int> count{0};
    Clock::time_point last;  // read after `count` has grown

    void playMidi(const MidiEngine::OrvMidiMessage&) override
    {
        last = Clock::now();
        ++count;
    }
    void enableMidiInput(int, bool) override {}
    void enableMidiOutput(int, bool) override {}
    ThreadId getThreadId() override { return clockThread; }
    void pulseSequencer() override {}
    void setTempo(int) override {}
    void setTempoSource(char) override {}
    char getTempoSource() override { return -1; }

    std::atomic<ThreadId> clockThread{0};
};

/// The backend with the keys of a new user, one layer, and a clock.
class Instrument
{
public:
    Instrument() : orv(OrvFactory::createOrv("Bench", player, false))
    {
        orv->start();
        auto& commands = orv->getOrvMessageManager();
        commands.sendInitialize();
        commands.sendSetMidiOutputPorts({{{.name = "Out"}}});
        Layers::LayerList layers;
        layers.add({});
        orv->getLayerMessageManager().postSetLayers(layers, false);
        clock = std::thread([this] { runClock(); });
        commands.sendEndInitialize();
        while (!orv->isAtRest()) std::this_thread::yield();
        const XmlDocument keys(ComputerInput::defaultKeysXml(0), XmlDocument::Source::text);
        orv->getComputerInputManager().loadSection(keys.getRoot());
    }

    ~Instrument()
    {
        orv->getOrvMessageManager().sendEnd();
        stopping = true;
        clock.join();
        orv->stop();
    }

    /// How long it takes until the player has what the key plays.
    template <class Post>
    Clock::duration measure(Post&& post)
    {
        const int before = player.count;
        const auto start = Clock::now();
        post(orv->getOrvMessageManager());
        while (player.count == before) std::this_thread::sleep_for(100us);
        return player.last - start;
    }

private:
    void runClock()
    {
        player.clockThread = currentThreadId();
        auto next = Clock::now();
        for (std::int32_t pulse = FIRST_PULSE; !stopping; ++pulse) {
            orv->playTimeSlice(pulse, pulse + 1);
            std::this_thread::sleep_until(next += 1ms);
        }
    }

    PrivateFolders folders;
    Stopwatch player;
    std::unique_ptr<OrvIF> orv;
    std::atomic<bool> stopping{false};
    std::thread clock;
};

double milliseconds(Clock::duration duration) { return std::chrono::duration<double, std::milli>(duration).count(); }
}  // namespace

int main(int argc, char** argv)
{
    const int presses = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 2000;
    Instrument instrument;
    std::vector<Clock::duration> times;
    const Key key = Key::fromXmlString("Q");
    for (int press = 0; press < presses; ++press) {
        times.push_back(instrument.measure([&](OrvMessageManager& backend) { backend.postKeyDown(key, false); }));
        instrument.measure([&](OrvMessageManager& backend) { backend.postKeyUp(key); });
        std::this_thread::sleep_for(std::chrono::microseconds(press * 137 % 1000));  // anywhere within a slice
    }
    std::ranges::sort(times);
    const auto at = [&](double part) {
        return milliseconds(times[static_cast<std::size_t>(part * static_cast<double>(times.size() - 1))]);
    };
    std::printf("key to player, %d presses: median %.2f ms, 99th percentile %.2f ms, longest %.2f ms\n", presses,
                at(0.5), at(0.99), at(1));
}
