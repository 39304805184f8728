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
#include "backend/model/BankEdit.h"
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

/// The backend with the bank, of which nothing plays; resets are executed at once.
class Backstage
{
public:
    Backstage()
    {
        orv->start();
        commands().sendInitialize();
        orv->playTimeSlice(pulse, pulse + 1);
        ++pulse;
        commands().postLoadBank(ThousandPrograms::get().path());
        rest();
    }
    ~Backstage()
    {
        commands().sendEnd();
        orv->stop();
    }

    OrvMessageManager& commands() { return orv->getOrvMessageManager(); }
    void rest()
    {
        while (!orv->isAtRest() || orv->isResetWaiting()) {
            if (orv->isResetWaiting()) orv->playTimeSlice(pulse, pulse);
            std::this_thread::yield();
        }
    }

private:
    SummingPlayer player;
    const std::unique_ptr<OrvIF> orv{OrvFactory::createOrv("Bench", player, false)};
    std::int32_t pulse = MidiEngine::MidiEngine::FIRST_PULSE;
};

/// Changes the program: the time until the backend is at rest.
void changeProgram(benchmark::State& state)
{
    ThousandPrograms::get();
    Backstage backend;
    int number = 0;
    for (auto _ : state) {
        backend.commands().postChangeProgram({SelectType::Kind::specific, number = (number + 611) % PROGRAMS});
        backend.rest();
    }
}

/// A step of the user in the programs of a bank, in the way of the backend: the time until it is at rest. It is undone
/// each time, which is not counted.
void editBank(benchmark::State& state, BankEdit edit)
{
    const std::string other = ThousandPrograms::get().path() + ".other.bnk";
    BigBank::write(other);
    Backstage backend;
    const bool fromOther = !edit.source.empty();
    if (fromOther) edit.source = other;
    for (auto _ : state) {
        backend.commands().postEditBank(edit);
        backend.rest();
        state.PauseTiming();
        backend.commands().postUndoBank("");
        if (fromOther && edit.kind == BankEdit::Kind::move) backend.commands().postUndoBank(other);
        backend.rest();
        state.ResumeTiming();
    }
}
}  // namespace

BENCHMARK(openBank)->Unit(benchmark::kMillisecond);
BENCHMARK(readProgram)->Unit(benchmark::kMicrosecond);
BENCHMARK(changeProgram)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(replaceProgram)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(moveProgram)->Unit(benchmark::kMillisecond)->UseRealTime();
#define BANK_STEP(name, ...) \
    BENCHMARK_CAPTURE(editBank, name, BankEdit{__VA_ARGS__})->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3)
BANK_STEP(add, .kind = BankEdit::Kind::add, .to = 500, .programName = "New");
BANK_STEP(copy, .kind = BankEdit::Kind::copy, .programs = {700}, .to = 500);
BANK_STEP(move, .kind = BankEdit::Kind::move, .programs = {700}, .to = 0);
BANK_STEP(rename, .kind = BankEdit::Kind::rename, .programs = {700}, .programName = "Mine");
BANK_STEP(remove, .kind = BankEdit::Kind::remove, .programs = {700});
BANK_STEP(copyFromOtherBank, .kind = BankEdit::Kind::copy, .programs = {700}, .to = 500, .source = "other");
BANK_STEP(moveFromOtherBank, .kind = BankEdit::Kind::move, .programs = {700}, .to = 500, .source = "other");
BENCHMARK_MAIN();
