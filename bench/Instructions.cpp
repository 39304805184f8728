// The program whose instructions `bench/instructions.sh` counts: it plays one path for a number of rounds. The
// difference between two runs of the same path is exactly that of the additional rounds.

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <thread>

#include "bench/ArpeggioBench.h"
#include "bench/EngineBench.h"
#include "platform/Event.h"

using Backend::ArpeggioManagement::ArpeggioSetting;
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiEngine;
using Backend::MidiEngine::MidiOutputPorts;

namespace
{
enum class Extra { none, followed, kept, older };

void play(const std::vector<Workload::Event>& workload, int rounds, EngineBench::Path path, int layers = 0,
          Extra extra = Extra::none)
{
    EngineBench bench(workload, path, layers);
    if (extra == Extra::followed) bench.followWithControls();
    if (extra == Extra::kept || extra == Extra::older) bench.keepNotes(layers, extra == Extra::older);
    for (int round = 0; round < rounds; ++round) bench.playRound();
}

void idlePulses(int rounds)
{
    SummingPlayer player;
    MidiEngine engine(player);
    for (std::int32_t pulse = 0; pulse < rounds * Workload::EVENTS; ++pulse) engine.playTimeSlice(pulse, pulse + 1);
}

void arpeggios(std::string_view kind, int rounds)
{
    using Type = ArpeggioSetting::Type;
    const Type type = kind == "chord"  ? Type::chord
                      : kind == "up"   ? Type::up
                      : kind == "down" ? Type::down
                                       : Type::upDown;
    ArpeggioBench bench(type);
    if (kind != "idle") bench.hold();
    bench.playPulses(rounds * Workload::EVENTS);
}

void oscillators(int rounds, Workload::Sines state)
{
    SummingPlayer player;
    MidiEngine engine(player);
    engine.setMidiOutputPorts(MidiOutputPorts(1));
    engine.setOscList(Workload::sines(16, state));
    const std::int32_t first = MidiEngine::FIRST_PULSE;
    for (std::int32_t pulse = first; pulse < first + rounds * Workload::EVENTS; ++pulse)
        engine.playTimeSlice(pulse, pulse + 1);
}

void resets(int rounds)
{
    SummingPlayer player;
    MidiEngine engine(player);
    engine.setMidiOutputPorts(MidiOutputPorts(1));
    for (int round = 0; round < rounds; ++round) {
        for (int note = 0; note < 10; ++note)
            engine.appendTimedEvent(Backend::MidiEngine::OrvMidiMessage(
                {.type = MessageType::noteOn, .d1 = note, .d2 = 100, .channel = 0, .output = 0, .pulse = 1}));
        engine.playTimeSlice(1, 2);
        engine.sendReset();
    }
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3) return std::fprintf(stderr, "usage: bench_instructions PATH ROUNDS\n"), 2;
    const std::string_view path = argv[1];
    const int rounds = std::atoi(argv[2]);
    Event wake;
    std::thread another([&] { wake.wait(); });  // as in every host
    if (path == "named_output")
        play(Workload::notes(), rounds, EngineBench::Path::namedOutput);
    else if (path == "default_output")
        play(Workload::notes(), rounds, EngineBench::Path::defaultOutput);
    else if (path.starts_with("notes_"))
        play(Workload::notes(), rounds, EngineBench::Path::layers, std::atoi(argv[1] + 6));
    else if (path.starts_with("mix_"))
        play(Workload::mix(), rounds, EngineBench::Path::layers, std::atoi(argv[1] + 4));
    else if (path.starts_with("kept_"))
        play(Workload::notes(), rounds, EngineBench::Path::layers, std::atoi(argv[1] + 5), Extra::kept);
    else if (path.starts_with("older_"))
        play(Workload::notes(), rounds, EngineBench::Path::layers, std::atoi(argv[1] + 6), Extra::older);
    else if (path.starts_with("controls_"))
        play(Workload::mix(), rounds, EngineBench::Path::layers, std::atoi(argv[1] + 9), Extra::followed);
    else if (path == "idle_pulse")
        idlePulses(rounds);
    else if (path.starts_with("arpeggios_"))
        arpeggios(path.substr(10), rounds);
    else if (path == "sines_stopped")
        oscillators(rounds, Workload::Sines::stopped);
    else if (path == "sines_thinned")
        oscillators(rounds, Workload::Sines::thinned);
    else if (path == "sines_detailed")
        oscillators(rounds, Workload::Sines::detailed);
    else if (path == "reset")
        resets(rounds);
    wake.set();
    another.join();
}
