// Nanoseconds of the paths through the engine: `build/release/bin/bench_midi`. Instruction counts:
// bench/instructions.sh.

#include <benchmark/benchmark.h>

#include <cinttypes>
#include <cstdio>
#include <memory>
#include <thread>

#include "bench/ArpeggioBench.h"
#include "bench/EngineBench.h"
#include "platform/Event.h"
#include "platform/Worker.h"

using Backend::ArpeggioManagement::ArpeggioSetting;
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiEngine;
using Backend::MidiEngine::MidiOutputPorts;

namespace
{
/// In a process with one thread the C library's mutex is far cheaper than in any host.
class SleepingThread
{
public:
    SleepingThread() : thread([this] { wake.wait(); }) {}
    ~SleepingThread()
    {
        wake.set();
        thread.join();
    }

private:
    Event wake;
    std::thread thread;
};

/// Per event of `Workload::notes`, queue and slice included.
void direct(benchmark::State& state, EngineBench::Path path)
{
    const SleepingThread another;
    EngineBench bench(Workload::notes(), path);
    bench.playRound();
    for (auto _ : state) bench.playRound();
    state.SetItemsProcessed(state.iterations() * Workload::EVENTS);
}

/// The same through layers.
void layers(benchmark::State& state, std::vector<Workload::Event> (*workload)())
{
    const SleepingThread another;
    EngineBench bench(workload(), EngineBench::Path::layers, static_cast<int>(state.range(0)));
    bench.playRound();
    for (auto _ : state) bench.playRound();
    state.SetItemsProcessed(state.iterations() * Workload::EVENTS);
}

void idlePulse(benchmark::State& state)
{
    const SleepingThread another;
    SummingPlayer player;
    MidiEngine engine(player);
    std::int32_t pulse = MidiEngine::FIRST_PULSE;
    for (auto _ : state) {
        engine.playTimeSlice(pulse, pulse + 1);
        if (++pulse == 2'000'000'000) pulse = MidiEngine::FIRST_PULSE;
    }
}

enum class Keys { up, held };

/// A pulse with sixteen arpeggios, idle or with four notes each.
void arpeggios(benchmark::State& state, ArpeggioSetting::Type type, Keys keys)
{
    const SleepingThread another;
    ArpeggioBench bench(type);
    if (keys == Keys::held) bench.hold();
    for (auto _ : state) bench.playPulses(ArpeggioBench::STEP);
    state.SetItemsProcessed(state.iterations() * ArpeggioBench::STEP);
}

/// From a post on one thread to the handler on another, which was asleep.
void postToTake(benchmark::State& state)
{
    Event taken;
    Worker worker("bench", 1, [&](Message&) { taken.set(); });
    worker.start();
    for (auto _ : state) {
        worker.post({.number = 2});
        taken.wait();
    }
}

/// A post from a slice; its consumer empties the queue and is not woken.
void postFromSlice(benchmark::State& state)
{
    MessageQueue queue(1024);
    int posted = 0;
    for (auto _ : state) {
        queue.postFromSlice({.number = 2});
        if (++posted % 512 == 0) {
            state.PauseTiming();
            while (queue.handleNext([](Message&) {})) {}
            state.ResumeTiming();
        }
    }
}

/// A reset of `range` sounding notes.
void reset(benchmark::State& state)
{
    SummingPlayer player;
    MidiEngine engine(player);
    engine.setMidiOutputPorts(MidiOutputPorts(16));
    engine.playTimeSlice(0, 1);
    for (auto _ : state) {
        state.PauseTiming();
        for (int i = 0; i < state.range(0); ++i)
            engine.appendTimedEvent(Backend::MidiEngine::OrvMidiMessage({.type = MessageType::noteOn,
                                                                         .d1 = i % 128,
                                                                         .d2 = 100,
                                                                         .channel = i / 128 % 16,
                                                                         .output = i % 16,
                                                                         .pulse = 1}));
        engine.playTimeSlice(1, 2);
        state.ResumeTiming();
        engine.sendReset();
    }
}
}  // namespace

BENCHMARK_CAPTURE(direct, named_output, EngineBench::Path::namedOutput);
BENCHMARK_CAPTURE(direct, default_output, EngineBench::Path::defaultOutput);
BENCHMARK_CAPTURE(layers, notes, &Workload::notes)->Arg(1)->Arg(4)->Arg(16)->Arg(64);
BENCHMARK_CAPTURE(layers, mix, &Workload::mix)->Arg(1)->Arg(4)->Arg(16)->Arg(64);
BENCHMARK(idlePulse);
BENCHMARK_CAPTURE(arpeggios, idle, ArpeggioSetting::Type::chord, Keys::up);
BENCHMARK_CAPTURE(arpeggios, chord, ArpeggioSetting::Type::chord, Keys::held);
BENCHMARK_CAPTURE(arpeggios, up, ArpeggioSetting::Type::up, Keys::held);
BENCHMARK_CAPTURE(arpeggios, down, ArpeggioSetting::Type::down, Keys::held);
BENCHMARK_CAPTURE(arpeggios, up_down, ArpeggioSetting::Type::upDown, Keys::held);
BENCHMARK(postToTake)->UseRealTime();
BENCHMARK(postFromSlice);
BENCHMARK(reset)->Arg(0)->Arg(10)->Arg(2048);

/// Whether the checksum is right, so that the intended path was measured.
bool isRight(EngineBench::Path path, int layers, std::uint64_t expected)
{
    const auto check = std::make_unique<EngineBench>(Workload::notes(), path, layers);
    check->playRound();
    if (check->player.sum == expected) return true;
    std::fprintf(stderr, "bench_midi: through %d layers the sum is %016" PRIx64 ", not %016" PRIx64 "\n", layers,
                 check->player.sum, expected);
    return false;
}

bool isRight(ArpeggioSetting::Type type)
{
    constexpr int STEPS = 100;
    ArpeggioBench check(type);
    check.hold();
    check.playPulses(STEPS * ArpeggioBench::STEP);
    if (check.player.count == static_cast<std::uint64_t>(ArpeggioBench::eventsOf(type, STEPS))) return true;
    std::fprintf(stderr, "bench_midi: an arpeggio played %" PRIu64 " notes\n", check.player.count);
    return false;
}

int main(int argc, char** argv)
{
    bool right = isRight(EngineBench::Path::namedOutput, 0, Workload::SUM_OF_NOTES);
    for (const auto& [count, sum] : Workload::SUMS_OF_LAYERS)
        right = isRight(EngineBench::Path::layers, count, sum) && right;
    for (int type = 0; type < 4; ++type) right = isRight(static_cast<ArpeggioSetting::Type>(type)) && right;
    if (!right) return 1;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
