// What a bank of a thousand programs costs: `build/release/bin/bench_bank`. The programs have the size that ours have,
// with 75 keys, 13 controls and 4 layers each.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "api/OrvFactory.h"
#include "api/OrvMessageManager.h"
#include "backend/engine/MidiEngine.h"
#include "backend/files/Bank.h"
#include "backend/files/BankFile.h"
#include "backend/xml/XmlDocument.h"
#include "bench/EngineBench.h"
#include "platform/Folders.h"

using namespace Backend;

namespace
{
constexpr int PROGRAMS = 1000;

std::string program(int number)
{
    std::ostringstream out;
    out << "<Program name=\"Program " << number << "\" tempo=\"120\" tempoSource=\"-1\">\n"
        << "\t<ComputerInput merge=\"false\" useKeyUpMod=\"false\">\n";
    for (int key = 0; key < 75; ++key)
        out << "\t\t<Key id=\"F" << key % 12 + 1 << "\" global=\"true\">\n\t\t\t\t<Function keepSending=\"false\">\n"
            << "\t\t\t\t\t<Down>\n\t\t\t\t\t\t<MidiNoteOn zone=\"0\" note=\"C4\" "
               "velocity=\"100\"/>\n\t\t\t\t\t</Down>\n"
            << "\t\t\t\t\t<Up>\n\t\t\t\t\t\t<MidiNoteOff zone=\"0\" note=\"C4\" velocity=\"100\"/>\n\t\t\t\t\t</Up>\n"
            << "\t\t\t\t</Function>\n\t\t</Key>\n";
    out << "\t</ComputerInput>\n\t<Controls merge=\"false\">\n";
    for (int control = 0; control < 13; ++control)
        out << "\t\t<Control cell=\"0," << control
            << "\" type=\"vfader\" name=\"VOL\" value=\"100\" min=\"0\" max=\"127\" release=\"-1\" autoSend=\"false\" "
               "size=\"2\">\n\t\t\t<Function midiEvent=\"Controller Change,7\" output=\"-1\" channel=\"-1\" "
               "zone=\"-1\"/>\n\t\t</Control>\n";
    out << "\t</Controls>\n\t<Layers merge=\"false\">\n";
    for (int layer = 0; layer < 4; ++layer) Layers::Layer{}.writeXml(out, 2);
    out << "\t</Layers>\n</Program>\n";
    return out.str();
}

/// The bank in a folder of its own, which is the user's too.
class ThousandPrograms
{
public:
    ThousandPrograms() : folder(std::filesystem::temp_directory_path() / "orvane-bench-bank")
    {
        std::filesystem::create_directories(folder);
        Folders::setLocalApplicationData((folder / "data").string());
        Folders::setSettings((folder / "config").string());
        std::ofstream file(path(), std::ios::binary);
        file << "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n<Bank>\n";
        for (int number = 0; number < PROGRAMS; ++number) file << program(number);
        file << "</Bank>\n";
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

/// The whole file, as when it is loaded.
void openBank(benchmark::State& state)
{
    const std::string path = ThousandPrograms::get().path();
    for (auto _ : state) {
        BankFile bank;
        if (!bank.open(path)) state.SkipWithError("not read");
    }
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
}

/// One program of a bank that is open, from the file to its element.
void readProgram(benchmark::State& state)
{
    BankFile bank;
    bank.open(ThousandPrograms::get().path());
    int number = 0;
    for (auto _ : state) benchmark::DoNotOptimize(bank.readProgram(number = (number + 611) % PROGRAMS));
}

/// One program into the bank, to the disk.
void replaceProgram(benchmark::State& state)
{
    BankFile bank;
    bank.open(ThousandPrograms::get().path());
    const std::string text = program(500);
    for (auto _ : state)
        if (!bank.replaceProgram(500, text)) state.SkipWithError("not written");
}

/// From the command to rest, the reset served at once: what the backend's thread is busy with.
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
BENCHMARK_MAIN();
