#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>

#include "api/Bank.h"
#include "api/OrvUtils.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/Program.h"
#include "backend/model/ScreenState.h"
#include "backend/sections/layers/LayerManager.h"
#include "platform/Folders.h"
#include "tests/stage/LiveStage.h"
#include "tests/stage/Stage.h"
#include "tests/stage/TemporaryFolder.h"

using namespace Backend;
using Kind = SelectType::Kind;

namespace
{
const std::string HEAD = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n";

/// A backend with a window and a progress dialog that listen, and a folder for files.
struct SavingStage : Stage {
    TemporaryFolder folder;
    std::shared_ptr<MessageQueue> window = std::make_shared<MessageQueue>(256);
    std::shared_ptr<MessageQueue> dialog = std::make_shared<MessageQueue>(16);

    std::string path(const std::string& name) { return (folder / name).string(); }
    WindowHandle progress() { return WindowHandle(dialog); }

    std::string makeBank(int programs)
    {
        std::string text = HEAD + "<Bank>\n";
        for (int i = 0; i < programs; ++i)
            text +=
                "<Program name=\"P" + std::to_string(i) + "\">\n\t<Layers>\n\t\t<Layer/>\n\t</Layers>\n</Program>\n";
        folder.write("a.bnk", text + "</Bank>\n");
        return path("a.bnk");
    }
    void load(const std::string& bank, int number)
    {
        commands().postLoadBank(bank);
        commands().postChangeProgram({Kind::specific, number});
        rest();
    }
    /// "P1 1" and the number of layers.
    std::string current()
    {
        rest();
        const Program& program = orv->getProgram();
        return program.name + " " + std::to_string(program.number) + " " +
               std::to_string(orv->getLayerManager().getLayers().size());
    }
    std::string names()
    {
        rest();
        std::string all;
        for (const std::string& name : orv->getBank().programNames) all += name + " ";
        return all;
    }
    /// What the dialog received: w for written, f for failed.
    std::string results()
    {
        rest();
        std::string all;
        while (dialog->handleNext([&](Message& message) {
            EXPECT_EQ(message.number, GuiMessage::OPERATION_DONE);
            all += message.wparam == 1 ? 'w' : 'f';
        })) {}
        return all;
    }
};
}  // namespace

TEST(Saving, EverySectionComesBackAsItWasSaved)
{
    SavingStage stage;
    const std::string program = R"(<File><Program name="All" tempo="90" tempoSource="-1">
        <Oscillators><Oscillator type="tri" speed="240" midiMessage="Controller Change,1" stopValue="64"/></Oscillators>
        <Joystick><Axis joystick="0" axis="X"><Function midiEvent="Pitch Bend" max="16383"/></Axis>
            <Button joystick="1" button="3"><Function><Down><ResetOrv/></Down></Function></Button></Joystick>
        <ComputerInput useKeyUpMod="true"><Key id="Q"><Function keepSending="true">
            <Down><MidiNoteOn zone="0" note="C4"/></Down><Up><MidiNoteOff zone="0" note="C4"/></Up></Function></Key>
            <Key id="Shift F1" global="false"/></ComputerInput>
        <MidiInput><MidiEvent input="0" channel="-1" midiEvent="Note On,60"><Translation condition="D2 gt 100">
            <MidiNoteOn zone="1" D1="D1 +12" D2="D2"/></Translation></MidiEvent></MidiInput>
        <Controls><Control cell="0,1" type="knob" name="A &amp; B" value="5" autoSend="true">
            <Function midiEvent="Controller Change,7" channel="2"/></Control></Controls>
        <Layers><Layer channel="4" transpose="+7"><Arpeggio><UpDownArpeggio beat="240" length="120"/></Arpeggio>
            <SequenceSetting useVelocity="false"><Sequence>0,12|19 V-5,-</Sequence></SequenceSetting></Layer></Layers>
        <Zones><Zone id="0" transpose="12"/><Zone id="1" transpose="-12"/></Zones></Program></File>)";
    stage.commands().postLoadProgramFromString(program, 3);
    stage.rest();
    const std::string text = stage.commands().sendGetProgramAsString();
    for (const char* part :
         {"<Oscillator type=\"tri\"", "<Axis joystick=\"0\" axis=\"X\">", "button=\"3\"", "useKeyUpMod=\"true\"",
          "<Key id=\"Shift F1\" global=\"false\">", "<Translation condition=\"D2 gt 100\">", "D1=\"D1 +12\"",
          "name=\"A &amp; B\"", "autoSend=\"true\"", "<UpDownArpeggio beat=\"240\" length=\"120\"/>",
          "<Sequence>0,12|19 V-5,-</Sequence>", "<Zone id=\"0\" transpose=\"12\"/>",
          "<Zone id=\"1\" transpose=\"-12\"/>"})
        EXPECT_NE(text.find(part), std::string::npos) << part << " in\n" << text;

    stage.load(stage.makeBank(1), 0);
    stage.commands().postLoadProgramFromString(text, 3);
    stage.rest();
    EXPECT_EQ(stage.commands().sendGetProgramAsString(), text);
}

TEST(Saving, AHostGetsWhereTheBackendStandsAndWhetherItsSettingsAreWritten)
{
    SavingStage stage;
    const std::string bank = stage.makeBank(3);
    stage.load(bank, 2);
    stage.commands().postSetDisplayHeight(321);
    const HostState state = stage.commands().sendSaveState();
    EXPECT_EQ(state.bank, bank);
    EXPECT_EQ(state.number, 2);
    EXPECT_EQ(state.program, stage.commands().sendGetProgramAsString());
    EXPECT_TRUE(state.areSettingsWritten);
    RegistrySettings written;
    written.loadFromRegistry(OrvUtils::getRegistryKey("Stage"));
    EXPECT_EQ(written.getDisplayHeight(), 321);

    stage.folder.write("a file", "");
    Folders::setSettings(stage.path("a file"));
    EXPECT_FALSE(stage.commands().sendSaveState().areSettingsWritten);
}

TEST(Saving, AProgramIsReadBackAsItWasWrittenInAllItsForms)
{
    SavingStage stage;
    Layers::Layer bass;
    bass.maxNote = MidiEngine::Note(40);
    bass.channel = 3;
    stage.setLayers({bass, {}});
    stage.commands().postChangeProgramName("\"Grand\" & <Program Größe>");
    stage.commands().postChangeTempo({false, 77}, false);
    stage.commands().postSetTempoSource(1, false);
    stage.commands().postSaveToProgram("  " + stage.path("a.prg") + " ", stage.progress());
    const std::string text = stage.commands().sendGetProgramAsString();
    EXPECT_EQ(stage.results(), "w");
    const std::string file = stage.folder.read("a.prg");
    EXPECT_TRUE(file.starts_with(HEAD +
                                 "<ProgramFile>\n<Program name=\"&quot;Grand&quot; &amp; &lt;Program Größe&gt;\" "
                                 "tempo=\"77\" tempoSource=\"1\">\n\t<Oscillators merge=\"false\">\n"))
        << file;
    EXPECT_TRUE(file.ends_with("\t</Layers>\n\t<Zones merge=\"false\">\n\t</Zones>\n</Program>\n</ProgramFile>\n"))
        << file;
    const auto body = [](const std::string& whole) {
        return whole.substr(whole.find("<Program "), whole.find("</Program>") - whole.find("<Program "));
    };
    EXPECT_EQ(text, HEAD + "<OrvProgramFile>\n" + body(file) + "</Program>\n</OrvProgramFile>\n");

    stage.load(stage.makeBank(2), 1);
    stage.commands().postLoadProgram(stage.path("a.prg"));
    stage.commands().postSaveToProgram(stage.path("b.prg"), {});
    EXPECT_EQ(stage.current(), "\"Grand\" & <Program Größe> 1 2");
    EXPECT_EQ(stage.folder.read("b.prg"), file);

    stage.load(stage.makeBank(3), 2);
    stage.commands().postLoadProgramFromString(text, 5);
    EXPECT_EQ(stage.current(), "\"Grand\" & <Program Größe> 5 2");
    EXPECT_EQ(stage.commands().sendGetProgramAsString(), text);

    stage.commands().postLoadProgramFromString(text, 1);
    stage.commands().postSaveToCurrentBank(0, stage.progress());
    stage.rest();
    EXPECT_EQ(body(stage.folder.read("a.bnk")), body(file));
    EXPECT_EQ(stage.names(), "\"Grand\" & <Program Größe> P1 P2 ");
}

TEST(Saving, IntoABankMakesItTheCurrentOneWithItsProgramOfTheCurrentNumber)
{
    SavingStage stage;
    stage.load(stage.makeBank(3), 1);
    stage.folder.write("b.bnk", "<Bank>\n<Program name=\"Q0\"/>\n<Program name=\"Q1\"/>\n</Bank>\n");
    stage.setLayers({{}, {}, {}});
    stage.commands().postSaveToCurrentBank(2, stage.progress());
    EXPECT_EQ(stage.current(), "P1 1 1") << "loaded again as it was stored";
    EXPECT_EQ(stage.names(), "P0 P1 P1 ");
    stage.commands().postChangeProgramName("Mine");
    stage.commands().postSaveToBank(stage.path("b.bnk"), stage.progress());
    EXPECT_EQ(stage.current(), "Mine 1 1");
    EXPECT_EQ(stage.names(), "Q0 Mine ");
    EXPECT_EQ(stage.orv->getBank().name, stage.path("b.bnk"));
    EXPECT_EQ(stage.results(), "ww");
}

TEST(Saving, WhatCannotBeSavedStaysInMemoryAndTheDialogIsNotified)
{
    SavingStage stage;
    stage.commands().postSaveToCurrentBank(0, stage.progress());
    EXPECT_EQ(stage.results(), "") << "a new user has no bank here";
    stage.load(stage.makeBank(2), 1);
    const std::string before = stage.folder.read("a.bnk");
    stage.folder.write("broken.bnk", "<Bank>\n<Program name=\"P\">\n</Bank>\n");
    stage.commands().postChangeProgramName("Mine");
    stage.commands().postSaveToCurrentBank(-1, stage.progress());
    stage.commands().postSaveToBank("", stage.progress());
    stage.commands().postSaveToProgram("   ", stage.progress());
    EXPECT_EQ(stage.results(), "") << "nothing was asked for";
    stage.commands().postSaveToCurrentBank(2, stage.progress());
    stage.commands().postSaveToBank(stage.path("broken.bnk"), stage.progress());
    stage.commands().postSaveToBank(stage.path("none.bnk"), stage.progress());
    stage.commands().postSaveToProgram(stage.path("no/folder.prg"), stage.progress());
    EXPECT_EQ(stage.results(), "ffff");
    stage.commands().postChangeProgramName("\xFF");
    EXPECT_EQ(stage.current(), "Mine 1 1");
    EXPECT_EQ(stage.folder.read("a.bnk"), before);
    EXPECT_EQ(stage.folder.read("broken.bnk"), "<Bank>\n<Program name=\"P\">\n</Bank>\n");
    EXPECT_EQ(stage.folder.contents(), "a.bnk broken.bnk");
}

TEST(Saving, KeysPlayWhileAFileIsWrittenAndLoadsWaitForIt)
{
    LiveStage stage;
    const std::string pipe = (stage.folders / "slow disk").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    stage.commands().postSaveToProgram(pipe, {});
    stage.commands().postLoadProgramFromString("<F><Program name='Loaded'/></F>", 0);
    stage.commands().postKeyDown(Key::fromXmlString("Q"), false);
    while (stage.player.events == 0) std::this_thread::yield();
    EXPECT_FALSE(stage.orv->isAtRest());
    std::thread end([&] { stage.commands().sendEnd(); });
    stage.folders.write("copy", stage.folders.read("slow disk"));
    end.join();
    EXPECT_NE(stage.folders.read("copy").find("<Key id=\"Q\""), std::string::npos) << "as it was before the load";
    EXPECT_EQ(stage.orv->getProgram().name, "Loaded");
}

TEST(Saving, AnImportedPresetIsListedAndLoads)
{
    SavingStage stage;
    stage.folder.write("old.pst", "\nlayer\nL 0 0 0 1 0 127 0 127 0 0 3\nL 0\n");
    stage.folder.write("old.bnk", "P 1 A\nL 1\n");
    stage.commands().postImportVersion2Preset(stage.path("old.pst"), "Old one", stage.progress());
    stage.commands().postImportVersion2Preset(stage.path("old.bnk"), "Other", stage.progress());
    stage.commands().postImportVersion2Bank(stage.path("old.bnk"), stage.path("new.bnk"), stage.progress());
    stage.commands().postImportVersion2Program(stage.path("old.bnk"), "", stage.progress());
    stage.commands().postImportVersion2Program(stage.path("none.prg"), stage.path("new.prg"), stage.progress());
    const std::string preset = "data/Brinlow Software/Orvane 3/Layer Presets/Old one.pst";
    stage.rest();
    const std::string before = stage.folders.read(preset);
    EXPECT_NE(before, "");
    stage.commands().postImportVersion2Preset((stage.folders / preset).string(), "Old one", stage.progress());
    EXPECT_EQ(stage.results(), "wfwff");
    EXPECT_EQ(stage.folders.read(preset), before);
    EXPECT_EQ(stage.orv->getLayerManager().getPresets().getList().getEntries(),
              (std::vector<PresetEntry>{{"Old one", false}}));
    stage.load(stage.path("new.bnk"), 0);
    EXPECT_EQ(stage.current(), "A 0 1");
}

TEST(Bank, GrowsAndShrinksAndNoProgramIsCurrentBeyondItsEnd)
{
    SavingStage stage;
    stage.load(stage.makeBank(4), 3);
    stage.commands().postChangeBankSize(2, stage.progress());
    EXPECT_EQ(stage.current(), "P1 1 1");
    EXPECT_EQ(stage.names(), "P0 P1 ");
    stage.commands().postChangeBankSize(4, stage.progress());
    stage.commands().postChangeBankSize(4, stage.progress());
    stage.commands().postChangeBankSize(0, stage.progress());
    EXPECT_EQ(stage.names(), "P0 P1 Empty Empty ");
    EXPECT_EQ(stage.results(), "ww");
    stage.commands().postChangeProgram({Kind::specific, 3});
    EXPECT_EQ(stage.current(), "Empty 3 0");
    EXPECT_EQ(stage.orv->getTempo(), 120);
    stage.setLayers({{}});
    stage.commands().postSaveToCurrentBank(3, stage.progress());
    EXPECT_EQ(stage.current(), "Empty 3 1");
}

TEST(Bank, TheWindowIsNotifiedOfNamesBanksAndScreens)
{
    SavingStage stage;
    const std::string bank = stage.makeBank(1);
    stage.orv->setGuiWindowHandle(WindowHandle(stage.window));
    stage.commands().postSetDefaultBank(bank);
    stage.commands().postChangeProgramName("Mine");
    stage.commands().postSetScreenState({.help = true});
    stage.rest();
    std::string received;
    while (stage.window->handleNext([&](Message& message) {
        if (message.number == GuiMessage::DEFAULT_BANK)
            received += *message.payload.get<std::string>() == bank ? "default " : "?";
        if (auto* loaded = message.payload.get<Bank>())
            received += "bank " + std::to_string(loaded->programNames.size());
        if (message.number == GuiMessage::ORV_RESET) received += " reset ";
        if (auto* program = message.payload.get<Program>())
            received += (message.number == GuiMessage::PROGRAM_NAME ? "name " : "program ") + program->name + " ";
    })) {}
    EXPECT_EQ(received, "default bank 1 reset program P0 name Mine ");
    EXPECT_EQ(stage.orv->getRegistrySettings().getDefaultBank(), bank);
    EXPECT_EQ(stage.orv->getScreenState(), (ScreenState{.help = true}));
}
