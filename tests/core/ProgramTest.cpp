#include <gtest/gtest.h>

#include "api/Bank.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/Program.h"
#include "backend/sections/layers/LayerManager.h"
#include "backend/sections/zones/ZoneManager.h"
#include "tests/stage/Stage.h"
#include "tests/stage/TemporaryFolder.h"

using namespace Backend;
using Kind = SelectType::Kind;

namespace
{
/// A backend and a folder for its files.
struct ProgramStage : Stage {
    TemporaryFolder folder;

    std::string file(const std::string& name, const std::string& content)
    {
        folder.write(name, content);
        return (folder / name).string();
    }

    /// A bank whose programs have as many layers as their number says, plus one.
    std::string bank(int programs)
    {
        std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n<Bank>\n<!-- Program -->\n";
        for (int number = 0; number < programs; ++number) {
            text += "<Other/><Program name=\"P" + std::to_string(number) + "\" tempo=\"" +
                    std::to_string(100 + number) + "\"><Layers>";
            for (int layer = 0; layer <= number; ++layer) text += "<Layer/>";
            text += "</Layers></Program>\n";
        }
        return file("test.bnk", text + "</Bank>\n");
    }

    void load(const std::string& path)
    {
        if (path.ends_with(".bnk"))
            commands().postLoadBank(path);
        else
            commands().postLoadProgram(path);
        rest();
    }
    std::string current()
    {
        const Program& program = orv->getProgram();
        return program.name + " " + std::to_string(program.number) + " " + std::to_string(program.tempo) + " " +
               std::to_string(layers());
    }
    std::size_t layers() { return orv->getLayerManager().getLayers().size(); }
};
}  // namespace

TEST(Bank, IsAListOfNamesAndItsProgramIsReadWhenItIsCalled)
{
    ProgramStage stage;
    stage.load(stage.bank(3));
    EXPECT_EQ(stage.orv->getBank().programNames, (std::vector<std::string>{"P0", "P1", "P2"}));
    EXPECT_EQ(stage.current(), "P0 0 100 1");
    const auto change = [&](Kind kind, int value = 0) {
        stage.commands().postChangeProgram({kind, value});
        stage.rest();
        return stage.current();
    };
    EXPECT_EQ(change(Kind::down), "P0 0 100 1") << "no wrap";
    EXPECT_EQ(change(Kind::up), "P1 1 101 2");
    EXPECT_EQ(change(Kind::specific, 2), "P2 2 102 3");
    EXPECT_EQ(change(Kind::up), "P2 2 102 3");
    EXPECT_EQ(change(Kind::specific, 3), "P2 2 102 3");
    EXPECT_EQ(change(Kind::specific, -1), "P2 2 102 3");
    std::erase(stage.player.requests, "source -1");
    EXPECT_EQ(stage.player.requests, (std::vector<std::string>{"tempo 100", "tempo 101", "tempo 102"}));

    stage.load(stage.file("other.bnk", "<Bank><Program name='Only'/></Bank>"));
    EXPECT_EQ(stage.current(), " 2 120 3") << "no such program there: the sections stay, the program is blank";
}

TEST(Program, OfAFileWithoutOneIsRefusedAndWhatIsLoadedStays)
{
    ProgramStage stage;
    const std::string bank = stage.bank(2);
    stage.load(bank);
    stage.commands().postChangeProgram({Kind::up});
    stage.press("C4");
    EXPECT_EQ(stage.played(), "C4 on, C4 on");
    const auto window = std::make_shared<MessageQueue>();
    stage.orv->setGuiWindowHandle(WindowHandle(window));
    stage.commands().postLoadProgramFromString("<OrvProgramFile/>", 7);
    for (const char* content : {"", "no bank", "<Bank/>", "<Bank><Program name='x'></Bank>"})
        for (const char* name : {"a.bnk", "a.prg"}) {
            const std::string path = *content == 0 ? (stage.folder / "missing").string() : stage.file(name, content);
            stage.load(path);
            stage.commands().postLoadProgram(path);
            stage.commands().postSetDefaultBank(path);
        }
    std::filesystem::rename(bank, bank + "2");
    stage.commands().postChangeProgram({Kind::down});
    stage.rest();
    EXPECT_EQ(stage.current(), "P1 1 101 2");
    EXPECT_EQ(stage.orv->getBank().programNames.size(), 2u);
    EXPECT_NE(stage.orv->getRegistrySettings().getDefaultBank(), stage.file("a.bnk", ""));
    EXPECT_EQ(stage.played(), "") << "nothing was reset";
    int refused = 0;
    while (window->handleNext([&](Message& message) {
        EXPECT_EQ(message.number, GuiMessage::PROGRAM);
        refused += message.wparam;
    })) {}
    EXPECT_EQ(refused, 2 + 4 * 2 * 3);
}

TEST(Program, KeepsTheCurrentNumberWhenItComesFromAFile)
{
    ProgramStage stage;
    stage.load(stage.bank(2));
    stage.commands().postChangeProgram({Kind::up});
    stage.rest();
    const std::string text = "<F><Program name='First' tempo='7' tempoSource='300'><Layers/></Program></F>";
    stage.load(stage.file("a.prg", text));
    EXPECT_EQ(stage.current(), "First 1 120 0") << "a tempo that cannot be played is none";
    EXPECT_EQ(stage.orv->getTempoSource(), -1);
    stage.load(stage.file("A.PRG", text));
    EXPECT_EQ(stage.current(), " 1 120 0") << "any other file is read like a bank, and has no program 1";
}

TEST(Program, WhatItLacksIsEmptied)
{
    ProgramStage stage;
    stage.load(stage.file("a.prg",
                          "<F><Program><MidiInput/><ComputerInput/><Joystick/><Zones><Zone id='1'/></Zones>"
                          "<Layers><Layer/></Layers><Nonsense/></Program></F>"));
    EXPECT_EQ(stage.layers(), 1u);
    EXPECT_EQ(stage.orv->getZoneManager().getZones().size(), 1u);
    stage.load(stage.file("b.prg", "<F><Program><Zones><Zone id='1'/></Zones></Program></F>"));
    EXPECT_EQ(stage.layers(), 0u);
    EXPECT_EQ(stage.orv->getZoneManager().getZones().size(), 0u)
        << "an input section that is emptied updates the zones";
    stage.load(stage.file("c.prg", "<F><Program name='Empty'></Program></F>"));
    EXPECT_EQ(stage.current(), "Empty 0 120 0");
    stage.load(stage.file("d.prg", "<F><Program name='Broken'>"));
    EXPECT_EQ(stage.current(), "Empty 0 120 0");
}

TEST(Program, AChangeEndsEveryNoteAndLetsNoneFallBetweenOldAndNew)
{
    ProgramStage stage;
    const std::string path = stage.bank(2);
    stage.load(path);
    stage.press("C4");
    EXPECT_EQ(stage.played(), "C4 on");
    stage.commands().postChangeProgram({Kind::up});
    stage.press("E4");
    EXPECT_EQ(stage.played(), "C4 off, E4 on, E4 on") << "two layers there";
    stage.release("E4");
    stage.release("C4");
    EXPECT_EQ(stage.played(), "E4 off, C4 off, C4 off") << "one of E4 was held back while it sounded twice";
}
