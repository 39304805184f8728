#include <gtest/gtest.h>

#include <thread>

#include "api/Bank.h"
#include "api/OrvFactory.h"
#include "api/OrvUtils.h"
#include "backend/files/RegistrySettings.h"
#include "backend/model/PresetSections.h"
#include "tests/stage/Stage.h"

using namespace Backend;

namespace
{
const std::string SETTINGS_FILE = "config/Brinlow Software/Lifecycle/3.2";
const std::string DATA = "data/Brinlow Software/Orvane 3";

/// A backend from its first to its last day, with a user's folders.
struct Life : PrivateFolders {
    BackendThread::StandIn standIn;
    RecordingPlayer player;
    std::unique_ptr<OrvIF> orv;

    void begin()
    {
        orv.reset(OrvFactory::createOrv("Lifecycle", player, false));
        orv->start();
        orv->getOrvMessageManager().sendInitialize();
    }
    void end()
    {
        orv->getOrvMessageManager().sendEnd();
        orv->stop();
        orv.reset();
    }
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
    const std::string bank = (life / DATA / "Banks/Default Bank.bnk").string();
    EXPECT_EQ(life.orv->getRegistrySettings().getDefaultBank(), bank);
    EXPECT_EQ(life.read(DATA + "/Banks/Default Bank.bnk"), "bank");
    EXPECT_FALSE(std::filesystem::exists(life / SETTINGS_FILE)) << "saved at the end alone";
    life.end();
    EXPECT_EQ(life.read(SETTINGS_FILE),
              "DefaultBank=string:" + bank + "\nEnabledMidiInputs=string:\nEnabledMidiOutputs=string:\n");
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

TEST(Lifecycle, AnEditSavedIntoTheDefaultBankIsThereTheNextTimeAndNothingElseChanged)
{
    Life life;
    OrvUtils::setOrvProgDir(ORVANE_CONTENT);
    life.begin();
    const std::string factory = life.read(DATA + "/Banks/Default Bank.bnk");
    const std::size_t programs = life.orv->getBank().programNames.size();
    ASSERT_GT(programs, 2u);
    auto& commands = life.orv->getOrvMessageManager();
    commands.postChangeProgram({SelectType::Kind::specific, 1});
    commands.postChangeProgramName("Mine");
    commands.postChangeTempo({false, 77}, false);
    commands.postExecuteFunction("<ChangeLayerMute type='all' value='on'/>");
    const std::string edited = commands.sendGetProgramAsString();
    commands.postSaveToCurrentBank(1, {});
    life.end();

    life.begin();
    EXPECT_EQ(life.orv->getBank().programNames.size(), programs);
    life.orv->getOrvMessageManager().postChangeProgram({SelectType::Kind::specific, 1});
    EXPECT_EQ(life.orv->getOrvMessageManager().sendGetProgramAsString(), edited);
    life.end();
    const std::string bank = life.read(DATA + "/Banks/Default Bank.bnk");
    const auto second = [](const std::string& text) {
        const auto end = text.find("</Program>");
        return std::pair(text.find("<Program ", end), text.find("</Program>", end + 1));
    };
    EXPECT_EQ(bank.substr(0, second(bank).first), factory.substr(0, second(factory).first));
    EXPECT_EQ(bank.substr(second(bank).second), factory.substr(second(factory).second));
}

TEST(Lifecycle, WhatTheUserChoseIsThereTheNextTime)
{
    Life life;
    life.write(SETTINGS_FILE, "DefaultBank=string:/my/own.bnk\nMidiThru=number:0\nDefaultMidiOutput=number:1\n");
    life.begin();
    auto& commands = life.orv->getOrvMessageManager();
    commands.sendSetMidiInputPorts({{{.name = "In"}}});
    commands.sendSetMidiOutputPorts({{{.name = "Out 1"}}, {{.name = "Out 2"}}});
    commands.sendEndInitialize();
    commands.postProcessMidiInputEvent(noteOn(60).channel(0).input(0));
    commands.postPlayMidi(noteOn(62).channel(0));
    while (!life.orv->isAtRest()) std::this_thread::yield();
    life.orv->playTimeSlice(100, 101);
    life.orv->playTimeSlice(101, 102);
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
    EXPECT_NE(life.read(DATA + "/Banks/Default Bank.bnk"), "") << "it comes when there is one";
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
