// Saves a bank, a program, a preset, the settings and the record into a folder, again and again, until it is killed:
// `bench_saves FOLDER`. First it checks the files of the last run: each must exist and be complete, and all must be of
// one generation. Prints "saving" after that check; exits with 2 and a line for the first damaged file. See
// crash_saves.py.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>

#include "api/MidiPlayer.h"
#include "api/OrvFactory.h"
#include "api/OrvMessageManager.h"
#include "api/OrvUtils.h"
#include "backend/engine/MidiEngine.h"
#include "backend/files/BankFile.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/LayerMessageManager.h"
#include "backend/model/Program.h"
#include "backend/recorder/RetroRecordManager.h"
#include "backend/xml/XmlDocument.h"
#include "platform/Folders.h"

using namespace Backend;
namespace fs = std::filesystem;

namespace
{
constexpr int PROGRAMS = 20;
constexpr int TEMPI = Program::HIGHEST_TEMPO - Program::LOWEST_TEMPO + 1;

class SilentPlayer final : public MidiEngine::MidiPlayer
{
public:
    void playMidi(const MidiEngine::OrvMidiMessage&) override {}
    void enableMidiInput(int, bool) override {}
    void enableMidiOutput(int, bool) override {}
    ThreadId getThreadId() override { return currentThreadId(); }
    void pulseSequencer() override {}
    void setTempo(int) override {}
    void setTempoSource(char) override {}
    char getTempoSource() override { return -1; }
};

struct Saves {
    explicit Saves(const fs::path& inFolder) : folder(inFolder)
    {
        Folders::setLocalApplicationData((folder / "data").string());
        Folders::setSettings((folder / "config").string());
    }

    std::string path(const char* name) const { return (folder / name).string(); }
    std::string preset() const { return OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), "Layer Presets/Kept.pst"); }
    bool isSettled() const { return fs::exists(path("settled")); }

    void prepare() const
    {
        if (isSettled()) return;
        std::ofstream bank(path("a.bnk"), std::ios::binary);
        bank << "<Bank>\n";
        for (int number = 0; number < PROGRAMS; ++number) bank << "<Program name=\"0\" tempo=\"20\">\n</Program>\n";
        bank << "</Bank>\n";
    }

    /// The first damaged file, or empty.
    std::string findDamage() const
    {
        BankFile bank;
        if (!bank.open(path("a.bnk")) || bank.getProgramNames().size() != PROGRAMS) return path("a.bnk");
        for (int number = 0; number < PROGRAMS; ++number)
            if (!isWhole(bank.readProgram(number))) return path("a.bnk") + ", program " + std::to_string(number);
        if (!isSettled()) return "";
        BankFile program;
        if (!program.open(path("a.prg")) || !isWhole(program.readProgram(0))) return path("a.prg");
        if (XmlDocument(preset(), XmlDocument::Source::file).getRoot().getTagName() != "Layers") return preset();
        RegistrySettings settings;
        settings.loadFromRegistry(OrvUtils::getRegistryKey("Saves"));
        if (settings.getMouseSensitivity() == 1 || settings.getMouseSensitivity() != settings.getDisplayHeight())
            return "the settings";
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.path().extension() == ".mid" && !isMidiFile(entry.path())) return entry.path().string();
        return "";
    }

    /// The name is the number of the generation, and the tempo is derived from it.
    static bool isWhole(const XmlElement& program)
    {
        const int generation = std::atoi(program.getAttribute("name").c_str());
        return program.hasElement() && program.getIntAttribute("tempo", 0) == tempoOf(generation);
    }
    static int tempoOf(int generation) { return Program::LOWEST_TEMPO + generation % TEMPI; }

    /// A header, and one track, whose length ends at the end of the file.
    static bool isMidiFile(const fs::path& file)
    {
        std::ifstream in(file, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(in), {});
        std::size_t length = 0;
        for (std::size_t at = 18; at < 22 && at < bytes.size(); ++at)
            length = length << 8 | static_cast<unsigned char>(bytes[at]);
        return bytes.starts_with("MThd") && bytes.size() == 22 + length &&
               bytes.ends_with(std::string_view("\xFF\x2F\0", 3));
    }

    [[noreturn]] void saveOn() const
    {
        SilentPlayer player;
        const std::unique_ptr<OrvIF> orv(OrvFactory::createOrv("Saves", player, true));
        orv->start();
        auto& commands = orv->getOrvMessageManager();
        commands.sendInitialize();
        commands.sendSetMidiOutputPorts({{{.name = "Out"}}});
        std::int32_t pulse = MidiEngine::MidiEngine::FIRST_PULSE;
        const auto rest = [&] {
            for (; !orv->isAtRest() || orv->isResetWaiting(); std::this_thread::yield())
                if (orv->isResetWaiting()) orv->playTimeSlice(pulse, pulse);
        };
        commands.postLoadBank(path("a.bnk"));
        for (int generation = 2;; ++generation) {
            commands.postChangeProgramName(std::to_string(generation));
            commands.postChangeTempo({false, tempoOf(generation)}, false);
            commands.postSaveToProgram(path("a.prg"), {});
            commands.postSaveToCurrentBank(0, {});
            commands.postSetMouseSensitivity(generation);
            commands.postSetDisplayHeight(generation);
            commands.postPlayMidi(MidiEngine::OrvMidiMessage(
                {.type = MidiEngine::MessageType::noteOn, .d1 = 60, .d2 = 100, .channel = 0, .output = 0}));
            rest();
            commands.sendSaveState();
            orv->getLayerMessageManager().postSavePreset("Kept", {});
            orv->playTimeSlice(pulse, pulse + 1);
            ++pulse;
            orv->saveRetroRecord(path("take"));
            rest();
            if (generation == 2) std::ofstream(path("settled"), std::ios::binary) << "1";
        }
    }

    const fs::path folder;
};
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) return 1;
    const Saves saves(argv[1]);
    saves.prepare();
    if (const std::string damage = saves.findDamage(); !damage.empty()) {
        std::printf("not whole: %s\n", damage.c_str());
        return 2;
    }
    std::puts("saving");
    std::fflush(stdout);
    saves.saveOn();
}
