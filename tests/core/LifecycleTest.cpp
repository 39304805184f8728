#include <regex>

#include "api/OrvFactory.h"
#include "api/OrvUtils.h"
#include "backend/files/RegistrySettings.h"
#include "backend/files/SequencePresetManager.h"
#include "backend/model/PresetSections.h"
#include "tests/stage/Stage.h"

using namespace Backend;

namespace
{
const std::string SETTINGS_FILE = "config/Brinlow Software/Lifecycle/3.2";
const std::string DATA = "data/Brinlow Software/Orvane 3";
const std::string DEFAULT_BANK = DATA + "/Banks/Default Bank.bnk";

/// A backend that begins and ends, of a user with folders of its own.
struct Life : PrivateFolders {
    BackendThread::StandIn standIn;
    RecordingPlayer player;
    std::unique_ptr<OrvIF> orv;
    std::optional<bool> continues;  // whether it loads what the last one stored

    void begin()
    {
        orv.reset(OrvFactory::createOrv("Lifecycle", player, false));
        orv->start();
        if (continues) commands().postContinueLast(*continues);
        commands().sendInitialize();
    }
    /// Until the first notes can be played, and as many slices as those need.
    void play()
    {
        while (!orv->isAtRest()) std::this_thread::yield();
        for (int pulse = 100; pulse < 104; ++pulse) orv->playTimeSlice(pulse, pulse + 1);
    }
    void end()
    {
        commands().sendEnd();
        orv->stop();
        orv.reset();
    }
    OrvMessageManager& commands() { return orv->getOrvMessageManager(); }
};
}  // namespace

TEST(Lifecycle, ANewUserGetsTheFactorysPresetsAndBanksAndADefaultBank)
{
    Life life;
    OrvUtils::setOrvProgDir((life / "prog").string());
    life.write("prog/Default/Banks/Default Bank.bnk", "bank");
    for (const PresetSection& section : PresetSections::ALL)
        life.write("prog/Default/" + std::string(section.folder) + "/Factory.pst", "preset");
    life.begin();
    EXPECT_EQ(life.contents(DATA),
              "Banks Computer Input Presets Control Presets Joystick Presets Layer Presets "
              "Midi Input Presets Oscillator Presets Retrospective Record");
    EXPECT_EQ(life.read(DATA + "/Oscillator Presets/Factory.pst"), "preset");
    const std::string bank = (life / DEFAULT_BANK).string();
    EXPECT_EQ(life.orv->getRegistrySettings().getDefaultBank(), bank);
    EXPECT_EQ(life.read(DEFAULT_BANK), "bank");
    EXPECT_FALSE(std::filesystem::exists(life / SETTINGS_FILE)) << "saved at the end alone";
    life.end();
    const std::string asStored = std::regex_replace(bank, std::regex(R"(\\)"), R"(\\)");
    EXPECT_EQ(life.read(SETTINGS_FILE),
              "DefaultBank=string:" + asStored + "\nEnabledMidiInputs=string:\nEnabledMidiOutputs=string:\n");
}

TEST(Lifecycle, BanksComeOnceThereIsContentForThem)
{
    Life life;
    OrvUtils::setOrvProgDir("");
    life.begin();
    life.end();
    EXPECT_FALSE(std::filesystem::exists(life / DATA / "Banks"));
    OrvUtils::setOrvProgDir((life / "prog").string());
    life.write("prog/Default/Banks/Default Bank.bnk", "bank");
    life.begin();
    life.end();
    EXPECT_EQ(life.read(DATA + "/Banks/Default Bank.bnk"), "bank");
}

TEST(Lifecycle, WhatTheUserChoseIsThereTheNextTime)
{
    Life life;
    life.write(SETTINGS_FILE, "DefaultBank=string:/my/own.bnk\nMidiThru=number:0\nDefaultMidiOutput=number:1\n");
    life.write(DATA + "/Sequences/Mine.seq", "");
    life.begin();
    EXPECT_TRUE(life.orv->getSequencePresetManager().exists("Mine"));
    OrvMessageManager& commands = life.commands();
    commands.sendSetMidiInputPorts({{{.name = "In"}}});
    commands.sendSetMidiOutputPorts({{{.name = "Out 1"}}, {{.name = "Out 2"}}});
    commands.sendEndInitialize();
    commands.postProcessMidiInputEvent(noteOn(60).channel(0).input(0));
    commands.postPlayMidi(noteOn(62).channel(0));
    life.play();
    ASSERT_EQ(life.player.events.size(), 1u) << "thru is off";
    EXPECT_EQ(life.player.events[0].getD1(), 62);
    EXPECT_EQ(life.player.events[0].getOutput(), 1);

    commands.postChangeMidiThru({OnOffToggle::State::on}, false);
    commands.postChangeDefaultMidiOutput({SelectType::Kind::down});
    commands.postEnableMidiInput(0, true);
    commands.postEnableMidiOutput(1, false);
    life.end();
    EXPECT_EQ(life.read(SETTINGS_FILE),
              "DefaultBank=string:/my/own.bnk\nMidiThru=number:1\nDefaultMidiOutput=number:0\n"
              "EnabledMidiInputs=string:Y\nEnabledMidiOutputs=string:NN\n");
    EXPECT_FALSE(std::filesystem::exists(life / DATA / "Banks")) << "there was no factory";

    OrvUtils::setOrvProgDir(ORVANE_CONTENT);
    std::filesystem::create_directory(life / DATA / "Banks");
    life.begin();
    EXPECT_NE(life.read(DEFAULT_BANK), "") << "it comes when there is one";
    EXPECT_TRUE(life.orv->getRegistrySettings().getMidiThru());
    EXPECT_EQ(life.orv->getRegistrySettings().getDefaultMidiOutput(), 0);
    life.end();
}

TEST(Lifecycle, AUserWithoutFoldersPlaysWithTheDefaults)
{
    Life life;
    life.write("data", "");
    life.write("config", "");
    life.begin();
    EXPECT_TRUE(life.orv->getRegistrySettings().getMidiThru());
    EXPECT_EQ(life.orv->getRegistrySettings().getDefaultBank(), "");
    life.end();
    EXPECT_EQ(life.contents(), "config data");
}

TEST(Lifecycle, TheFirstProgramsControlsSendOnceThereArePorts)
{
    Life life;
    life.write(DEFAULT_BANK, R"(<Bank><Program name="One"><Layers><Layer/></Layers><Controls>
        <Control cell="0,0" type="edit" value="9" autoSend="true"><Function midiEvent="Program Change"/></Control>
        <Control cell="0,1" type="edit" value="9"><Function midiEvent="Controller Change,1"/></Control>
        </Controls></Program></Bank>)");
    life.begin();
    life.commands().sendSetMidiOutputPorts({{{.name = "Out 1"}}});
    life.commands().sendEndInitialize();
    life.play();
    ASSERT_EQ(life.player.events.size(), 1u);
    EXPECT_EQ(life.player.events[0].getMidiMessage(), MidiEngine::MidiMessage(MessageType::programChange, 9));
    life.end();
}

TEST(Lifecycle, AStartBeginsWhereTheLastOneEnded)
{
    Life life;
    life.write(DEFAULT_BANK, "<Bank><Program name='D'/></Bank>");
    life.write("a.bnk", "<Bank><Program name='A0'/><Program name='A1'/></Bank>");
    const auto first = [&life](std::optional<bool> continues, auto change) {
        life.continues = continues;
        life.begin();
        const std::string name = life.orv->getProgram().name;
        change(life.commands());
        life.play();
        life.end();
        return name;
    };
    const auto nothing = [](OrvMessageManager&) {};
    const auto loadsA1 = [&life](OrvMessageManager& commands) {
        commands.postSetProgramNumber(1);
        commands.postLoadBank((life / "a.bnk").string());
    };
    EXPECT_EQ(first(true, loadsA1), "D");
    EXPECT_EQ(first(std::nullopt, nothing), "D") << "a host that does not want it";
    EXPECT_EQ(first(true, nothing), "A1");
    EXPECT_EQ(first(false, nothing), "D") << "files are loaded instead";
    EXPECT_EQ(first(true, loadsA1), "D");
    life.write("a.bnk", "<Bank><Program name='A0'/></Bank>");
    EXPECT_EQ(first(true, nothing), "A0");
    std::filesystem::remove(life / "a.bnk");
    EXPECT_EQ(first(true, loadsA1), "D");
    life.write("a.bnk", "<Bank><Program name='A0'/></Bank>");
    life.write(SETTINGS_FILE, "ContinueLast=number:0\n");
    EXPECT_EQ(first(true, nothing), "D");
}
