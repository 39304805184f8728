#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "api/Bank.h"
#include "api/OrvUtils.h"
#include "backend/model/PresetSections.h"
#include "backend/model/Program.h"
#include "backend/values/Key.h"
#include "tests/stage/Stage.h"
#include "tests/stage/TemporaryFolder.h"

using namespace Backend;

namespace
{
const std::filesystem::path CONTENT = ORVANE_CONTENT "/Default";
const std::string DEFAULT_PRESET = "000 - Default";  // its short form is what the defaults' own tests are for

std::string textOf(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// What stands from `start` to the end of `end`.
std::string between(const std::string& text, const std::string& start, const std::string& end)
{
    const auto from = text.find(start);
    const auto to = text.find(end, from);
    return from == std::string::npos || to == std::string::npos ? "" : text.substr(from, to - from + end.size());
}

/// The lines without the tabs before them, since a program's sections stand one deeper than a preset.
std::string plain(const std::string& text)
{
    std::istringstream lines(text);
    std::string all;
    for (std::string line; std::getline(lines, line);) all += line.erase(0, line.find_first_not_of('\t')) + '\n';
    return all;
}

/// A backend of a user who has all that the factory gives.
struct FactoryStage : Stage {
    FactoryStage()
    {
        std::filesystem::copy(
            CONTENT, OrvUtils::getOrvAppDataDir(),
            std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    }

    std::string program()
    {
        rest();
        return between(commands().sendGetProgramAsString(), "<Program ", "</Program>\n");
    }
    void load(int number)
    {
        commands().postChangeProgram({SelectType::Kind::specific, number});
        rest();
        player.events.clear();
        playSlices(4);
    }
};

std::vector<std::filesystem::path> presetsIn(const std::string& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(CONTENT / folder)) files.push_back(entry.path());
    return files;
}
}  // namespace

TEST(FactoryContent, ProgramsOfTheBankAreWhatSavingThemWouldWrite)
{
    FactoryStage stage;
    const std::string file = textOf(CONTENT / "Banks/Default Bank.bnk");
    stage.commands().postLoadBank((CONTENT / "Banks/Default Bank.bnk").string());
    stage.rest();
    const auto names = stage.orv->getBank().programNames;
    ASSERT_EQ(names.size(), 12u);
    for (std::size_t number = 1; number < names.size(); ++number) {
        stage.commands().postChangeProgram({SelectType::Kind::specific, static_cast<int>(number)});
        EXPECT_EQ(stage.program(), between(file, "<Program name=\"" + names[number] + '"', "</Program>\n"));
    }
}

TEST(FactoryContent, PresetsAreWhatSavingThemWouldWrite)
{
    FactoryStage stage;
    for (const auto& [folder, root] : PresetSections::ALL) {
        const auto files = presetsIn(folder);
        EXPECT_GE(files.size(), 4u) << folder;
        for (const auto& file : files) {
            if (file.stem() == DEFAULT_PRESET) continue;
            const std::string element = textOf(file);
            const std::string start = std::string("<") + root;
            const std::string end = std::string("</") + root + ">\n";
            stage.commands().postLoadProgramFromString(
                "<File><Program name=\"\">" + between(element, start, end) + "</Program></File>", 0);
            EXPECT_EQ("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n" + plain(between(stage.program(), start, end)),
                      plain(element))
                << file;
        }
    }
}

TEST(FactoryContent, EveryProgramChoosesTheSoundsOfTheNotesItPlays)
{
    FactoryStage stage;
    stage.commands().postLoadBank((CONTENT / "Banks/Default Bank.bnk").string());
    stage.rest();
    for (int number = 1; number < static_cast<int>(stage.orv->getBank().programNames.size()); ++number) {
        stage.load(number);
        for (const char* key : {"Q", "Z"}) stage.orv->keyDown(Key::fromXmlString(key), false);
        stage.playSlices(400);
        for (const char* key : {"Q", "Z"}) stage.orv->keyUp(Key::fromXmlString(key));
        stage.playSlices(4);
        std::set<int> chosen;
        std::set<int> played;
        int sounding = 0;
        for (const auto& event : stage.player.events) {
            if (event.getStatus() == MidiEngine::MessageType::programChange) chosen.insert(event.getChannel());
            if (event.isNoteOn()) played.insert(event.getChannel()), ++sounding;
            if (event.isNoteOff()) --sounding;
        }
        const std::string& name = stage.orv->getProgram().name;
        EXPECT_FALSE(played.empty()) << name;
        EXPECT_TRUE(std::includes(chosen.begin(), chosen.end(), played.begin(), played.end())) << name;
        EXPECT_EQ(sounding, name == "Drone Pad and Flute" ? 1 : 0) << name << ": a drone alone goes on";
    }
}
