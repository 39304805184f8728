// Edits the program of a bank, again and again, until it is killed: `bench_recovery FOLDER`. First it restores what the
// process before left. Prints the number of the edit that it found, "restored 12", then "edit 13" and so on; exits with
// 2 and a line if what was restored is not whole. See crash_recovery.py.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>

#include "api/HostState.h"
#include "api/MidiPlayer.h"
#include "api/OrvFactory.h"
#include "api/OrvMessageManager.h"
#include "backend/messages/BackendThread.h"
#include "backend/model/Edit.h"
#include "backend/model/Program.h"
#include "backend/sections/layers/LayerManager.h"
#include "platform/Folders.h"
#include "tests/stage/SilentPlayer.h"

using namespace Backend;
namespace fs = std::filesystem;

namespace
{
constexpr int LAYERS = 64;
constexpr auto PAUSE = std::chrono::milliseconds(10);

std::string makeBank(const fs::path& folder)
{
    const fs::path bank = folder / "a.bnk";
    if (fs::exists(bank)) return bank.string();
    std::ofstream out(bank, std::ios::binary);
    out << "<Bank>\n";
    for (const char* name : {"0", "other"}) {
        out << "<Program name=\"" << name << "\">\n<Layers>\n";
        for (int layer = 0; layer < LAYERS; ++layer) out << "<Layer/>\n";
        out << "</Layers>\n</Program>\n";
    }
    out << "</Bank>\n";
    return bank.string();
}

void print(const char* what, int number)
{
    std::printf("%s %d\n", what, number);
    std::fflush(stdout);
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) return 1;
    const fs::path folder = argv[1];
    Folders::setLocalApplicationData((folder / "data").string());
    Folders::setSettings((folder / "config").string());
    SilentPlayer player;
    const std::unique_ptr<OrvIF> orv(OrvFactory::createOrv("Recovery", player, false));
    orv->start();
    auto& commands = orv->getOrvMessageManager();
    const auto rest = [&] {
        for (; !orv->isAtRest() || orv->isResetWaiting(); std::this_thread::yield())
            if (orv->isResetWaiting()) orv->playTimeSlice(50000000, 50000000);
    };
    commands.sendInitialize();
    commands.postKeepDrafts(true);
    commands.postLoadBank(makeBank(folder));
    commands.postKeepRecovery({});
    rest();
    const BackendThread::StandIn standIn;
    int edit = std::atoi(orv->getProgram().name.c_str());
    if (orv->getLayerManager().getLayers().size() != LAYERS) {
        std::printf("not whole: %s\n", orv->getProgram().name.c_str());
        return 2;
    }
    print("restored", edit);
    for (;; std::this_thread::sleep_for(PAUSE)) {
        const std::string name = std::to_string(++edit);
        const auto change = [&](const char* section, RecordId id, const char* field, const std::string& value) {
            commands.postEdit({.section = section,
                               .name = name,
                               .gesture = static_cast<std::uint32_t>(edit),
                               .records = {{.id = id, .fields = {{field, value}}}}});
        };
        change("Layers", edit % LAYERS, "transpose", std::to_string(edit % 12 + 1));
        change("Program", 0, "name", name);
        rest();
        print("edit", edit);
    }
}
