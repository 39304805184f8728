#include "backend/files/RegistrySettings.h"
#include "backend/sections/zones/ZoneManager.h"
#include "tests/core/ProgramStage.h"

using namespace Backend;
using Kind = SelectType::Kind;

TEST(Bank, IsAListOfNamesAndItsProgramIsReadWhenItIsCalled)
{
    ProgramStage stage;
    stage.load(stage.makeBank(3));
    EXPECT_EQ(stage.names(), "P0 P1 P2");
    EXPECT_EQ(stage.current(), "P0 0 100 1");
    EXPECT_EQ(stage.changeProgram(Kind::down), "P0 0 100 1") << "no wrap";
    EXPECT_EQ(stage.changeProgram(Kind::up), "P1 1 101 2");
    EXPECT_EQ(stage.changeProgram(Kind::specific, 2), "P2 2 102 3");
    EXPECT_EQ(stage.changeProgram(Kind::up), "P2 2 102 3");
    EXPECT_EQ(stage.changeProgram(Kind::specific, 3), "P2 2 102 3");
    EXPECT_EQ(stage.changeProgram(Kind::specific, -1), "P2 2 102 3");
    std::erase(stage.player.requests, "source -1");
    EXPECT_EQ(stage.player.takeRequests(), "tempo 100, tempo 101, tempo 102");

    stage.loadFile("other.bnk", "<Bank><Program name='Only'/></Bank>");
    EXPECT_EQ(stage.current(), " 2 120 3") << "no such program there: the sections stay, the program is blank";
}

TEST(Program, OfAFileWithoutOneIsRefusedAndWhatIsLoadedStays)
{
    ProgramStage stage;
    const std::string bank = stage.makeBank(2);
    stage.loadProgram(bank, 1);
    stage.press("C4");
    EXPECT_EQ(stage.played(), "C4 on, C4 on");
    stage.openWindow();
    stage.commands().postLoadProgramFromString("<OrvProgramFile/>", 7);
    for (const char* content : {"", "no bank", "<Bank/>", "<Bank><Program name='x'></Bank>"})
        for (const char* name : {"b.bnk", "b.prg"}) {
            stage.folder.write(name, content);
            const std::string path = stage.path(*content == 0 ? "missing" : name);
            stage.load(path);
            stage.commands().postLoadProgram(path);
            stage.commands().postSetDefaultBank(path);
        }
    stage.rest();
    std::filesystem::rename(bank, bank + "2");
    EXPECT_EQ(stage.changeProgram(Kind::down), "P1 1 101 2");
    EXPECT_EQ(stage.names(), "P0 P1");
    EXPECT_NE(stage.orv->getRegistrySettings().getDefaultBank(), stage.path("b.bnk"));
    EXPECT_EQ(stage.played(), "") << "nothing was reset";
    unsigned refused = 0;
    stage.received([&](Message& message) {
        EXPECT_EQ(message.number, GuiMessage::PROGRAM);
        refused += message.wparam;
        return "";
    });
    EXPECT_EQ(refused, 2u + 4 * 2 * 3);
}

TEST(Program, KeepsTheCurrentNumberWhenItComesFromAFile)
{
    ProgramStage stage;
    stage.loadProgram(stage.makeBank(2), 1);
    const std::string text = "<F><Program name='First' tempo='7' tempoSource='300'><Layers/></Program></F>";
    stage.loadFile("a.prg", text);
    EXPECT_EQ(stage.current(), "First 1 120 0") << "a tempo that cannot be played is none";
    EXPECT_EQ(stage.orv->getTempoSource(), -1);
    stage.loadFile("A.PRG", text);
    EXPECT_EQ(stage.current(), " 1 120 0") << "any other file is read like a bank, and has no program 1";
}

TEST(Program, WhatItLacksIsEmptied)
{
    ProgramStage stage;
    const auto& zones = stage.orv->getZoneManager().getZones();
    stage.loadSections(
        "<MidiInput/><ComputerInput/><Joystick/><Zones><Zone id='1'/></Zones><Layers><Layer/></Layers>"
        "<Nonsense/>");
    EXPECT_EQ(stage.current(), "a 0 120 1");
    EXPECT_EQ(zones.size(), 1u);
    stage.loadSections("<Zones><Zone id='1'/></Zones>");
    EXPECT_EQ(stage.current(), "a 0 120 0");
    EXPECT_EQ(zones.size(), 0u) << "an input section that is emptied updates the zones";
    stage.loadFile("b.prg", "<F><Program name='Broken'>");
    EXPECT_EQ(stage.current(), "a 0 120 0");
}
