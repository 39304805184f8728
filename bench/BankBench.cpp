// Times of operations on a bank of a thousand programs: `build/release/bin/bench_bank`.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <thread>

#include "api/Bank.h"
#include "api/OrvFactory.h"
#include "api/OrvMessageManager.h"
#include "backend/engine/MidiEngine.h"
#include "backend/files/BankFile.h"
#include "backend/xml/XmlDocument.h"
#include "bench/BigBank.h"
#include "bench/EngineBench.h"
#include "platform/Folders.h"

using namespace Backend;

namespace
{
using BigBank::program;
using BigBank::PROGRAMS;

/// The bank in a temporary folder, which is also the user's folder.
class ThousandPrograms
{
public:
    ThousandPrograms() : folder(std::filesystem::temp_directory_path() / "orvane-bench-bank")
    {
        std::filesystem::create_directories(folder);
        Folders::setLocalApplicationData((folder / "data").string());
        Folders::setSettings((folder / "config").string());
        BigBank::write(path());
    }
    ~ThousandPrograms() { std::filesystem::remove_all(folder); }

    std::string path() const { return (folder / "thousand.bnk").string(); }
    static const ThousandPrograms& get()
    {
        static const ThousandPrograms bank;
        return bank;
    }

private:
    std::filesystem::path folder;
};

/// Reads and checks the whole file.
void openBank(benchmark::State& state)
{
    const std::string path = ThousandPrograms::get().path();
    for (auto _ : state) {
        BankFile bank;
        if (!bank.open(path)) state.SkipWithError("not read");
    }
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
}

/// Reads a program of an open bank.
void readProgram(benchmark::State& state)
{
    BankFile bank;
    bank.open(ThousandPrograms::get().path());
    int number = 0;
    for (auto _ : state) benchmark::DoNotOptimize(bank.readProgram(number = (number + 611) % PROGRAMS));
}

/// Replaces a program in the file.
void replaceProgram(benchmark::State& state)
{
    BankFile bank;
    bank.open(ThousandPrograms::get().path());
    const std::string text = program(500);
    for (auto _ : state)
        if (!bank.replaceProgram(500, text)) state.SkipWithError("not written");
}

/// Moves a program to the beginning of the bank.
void moveProgram(benchmark::State& state)
{
    BankFile bank;
    bank.open(ThousandPrograms::get().path());
    Arrangement order(PROGRAMS);
    for (int place = 0; place < PROGRAMS; ++place) order[static_cast<std::size_t>(place)].number = place;
    std::rotate(order.begin(), order.begin() + 500, order.begin() + 501);
    for (auto _ : state)
        if (!bank.arrange(order)) state.SkipWithError("not written");
}

/// Changes the program: the time until the backend is at rest, with resets executed at once.
void changeProgram(benchmark::State& state)
{
    ThousandPrograms::get();
    SummingPlayer player;
    const std::unique_ptr<OrvIF> orv(OrvFactory::createOrv("Bench", player, false));
    orv->start();
    auto& commands = orv->getOrvMessageManager();
    commands.sendInitialize();
    std::int32_t pulse = MidiEngine::MidiEngine::FIRST_PULSE;
    const auto rest = [&] {
        while (!orv->isAtRest() || orv->isResetWaiting()) {
            if (orv->isResetWaiting()) orv->playTimeSlice(pulse, pulse);
            std::this_thread::yield();
        }
    };
    orv->playTimeSlice(pulse, pulse + 1);
    ++pulse;
    commands.postLoadBank(ThousandPrograms::get().path());
    rest();
    int number = 0;
    for (auto _ : state) {
        commands.postChangeProgram({SelectType::Kind::specific, number = (number + 611) % PROGRAMS});
        rest();
    }
    commands.sendEnd();
    orv->stop();
}
}  // namespace

BENCHMARK(openBank)->Unit(benchmark::kMillisecond);
BENCHMARK(readProgram)->Unit(benchmark::kMicrosecond);
BENCHMARK(changeProgram)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(replaceProgram)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(moveProgram)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_MAIN();
