#include "api/Bank.h"
#include "api/OrvUtils.h"
#include "backend/model/PresetSections.h"
#include "tests/stage/Stage.h"

using namespace Backend;

namespace
{
const std::filesystem::path CONTENT = ORVANE_CONTENT "/Default";
const std::filesystem::path FACTORY_BANK = CONTENT / "Banks/Default Bank.bnk";

/// What stands from `start` to the end of `end`.
std::string between(const std::string& text, const std::string& start, const std::string& end)
{
    const auto from = text.find(start);
    const auto to = text.find(end, from);
    return from == std::string::npos || to == std::string::npos ? "" : text.substr(from, to - from + end.size());
}

/// A backend of a user who has all that the factory gives, and its bank.
struct FactoryStage : Stage {
    FactoryStage()
    {
        using enum std::filesystem::copy_options;
        std::filesystem::copy(CONTENT, OrvUtils::getOrvAppDataDir(), recursive | overwrite_existing);
        load(FACTORY_BANK.string());
        for (const std::string& name : orv->getBank().programNames) names.push_back(name);
    }

    void change(std::size_t number)
    {
        commands().postChangeProgram({SelectType::Kind::specific, static_cast<int>(number)});
        rest();
    }
    std::string program()
    {
        rest();
        return between(commands().sendGetProgramAsString(), "<Program ", "</Program>\n");
    }

    std::vector<std::string> names;
};
}  // namespace

TEST(FactoryContent, ProgramsOfTheBankAreWhatSavingThemWouldWrite)
{
    FactoryStage stage;
    ASSERT_EQ(stage.names.size(), 12u);
    for (std::size_t number = 1; number < stage.names.size(); ++number) {
        stage.change(number);
        EXPECT_EQ(stage.program(),
                  between(fileText(FACTORY_BANK), "<Program name=\"" + stage.names[number] + '"', "</Program>\n"));
    }
}

TEST(FactoryContent, PresetsAreWhatSavingThemWouldWrite)
{
    FactoryStage stage;
    for (const auto& [folder, root] : PresetSections::ALL) {
        int count = 0;
        const std::string start = std::string("<") + root;
        const std::string end = std::string("</") + root + ">\n";
        for (const auto& file : std::filesystem::directory_iterator(CONTENT / folder)) {
            ++count;
            if (file.path().stem() == "000 - Default") continue;  // its short form is what the defaults' test is for
            const std::string element = between(fileText(file), start, end);
            EXPECT_EQ(fileText(file), XML_HEAD + element) << file;
            stage.commands().postLoadProgramFromString("<File><Program>" + element + "</Program></File>", 0);
            EXPECT_EQ(flat(between(stage.program(), start, end)), flat(element)) << file;
        }
        EXPECT_GE(count, 4) << folder;
    }
}

TEST(FactoryContent, EveryProgramChoosesTheSoundsOfTheNotesItPlays)
{
    FactoryStage stage;
    for (std::size_t number = 1; number < stage.names.size(); ++number) {
        stage.change(number);
        stage.player.events.clear();
        stage.playSlices(4);
        for (const char* key : {"Q", "Z"}) stage.orv->keyDown(Key::fromXmlString(key), false);
        stage.playSlices(400);
        for (const char* key : {"Q", "Z"}) stage.orv->keyUp(Key::fromXmlString(key));
        stage.playSlices(4);
        std::set<int> chosen;
        std::set<int> played;
        int sounding = 0;
        for (const auto& event : stage.player.events) {
            if (event.getStatus() == MessageType::programChange) chosen.insert(event.getChannel());
            if (event.isNoteOn()) played.insert(event.getChannel()), ++sounding;
            if (event.isNoteOff()) --sounding;
        }
        const std::string& name = stage.names[number];
        EXPECT_FALSE(played.empty()) << name;
        EXPECT_TRUE(std::includes(chosen.begin(), chosen.end(), played.begin(), played.end())) << name;
        EXPECT_EQ(sounding, name == "Drone Pad and Flute" ? 1 : 0) << name << ": a drone alone goes on";
    }
}
