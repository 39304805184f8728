#include "api/OrvUtils.h"
#include "backend/files/RegistrySettings.h"
#include "backend/model/ScreenState.h"
#include "platform/Folders.h"
#include "tests/core/ProgramStage.h"

using namespace Backend;
using Kind = SelectType::Kind;

TEST(Saving, AProgramIsWrittenInOneFormHoweverItWasWritten)
{
    ProgramStage stage;
    const std::string written = fileText(ORVANE_PROGRAMS "/odd.written");
    stage.load(ORVANE_PROGRAMS "/odd.prg");
    EXPECT_EQ(stage.commands().sendGetProgramAsString(), written);
    stage.load(stage.makeBank(1));
    stage.commands().postLoadProgramFromString(written, 3);
    stage.rest();
    EXPECT_EQ(stage.commands().sendGetProgramAsString(), written);
}

TEST(Saving, AHostGetsWhereTheBackendStandsAndWhetherItsSettingsAreWritten)
{
    ProgramStage stage;
    const std::string bank = stage.makeBank(3);
    stage.loadProgram(bank, 2);
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
    ProgramStage stage;
    const std::string name = "\"Grand\" & <Program Größe>";
    stage.setLayers({{}, {}});
    stage.commands().postExecuteFunction("<ChangeLayerTranspose type='1' value='3'/>");
    stage.rest();
    stage.commands().postChangeProgramName(name);
    stage.commands().postChangeTempo({false, 77}, false);
    stage.commands().postSetTempoSource(1, false);
    stage.commands().postSaveToProgram("  " + stage.path("a.prg") + " ", stage.dialog.handle());
    const std::string text = stage.commands().sendGetProgramAsString();
    EXPECT_EQ(stage.results(), "w");
    const std::string file = stage.folder.read("a.prg");
    EXPECT_TRUE(file.starts_with(XML_HEAD +
                                 "<ProgramFile>\n<Program name=\"&quot;Grand&quot; &amp; &lt;Program Größe&gt;\" "
                                 "tempo=\"77\" tempoSource=\"1\">\n\t<Oscillators merge=\"false\">\n"))
        << file;
    EXPECT_TRUE(file.ends_with("\t</Layers>\n\t<Zones merge=\"false\">\n\t</Zones>\n</Program>\n</ProgramFile>\n"))
        << file;
    const auto body = [](const std::string& whole) {
        const auto begin = whole.find("<Program ");
        return whole.substr(begin, whole.find("</Program>") - begin);
    };
    EXPECT_EQ(text, XML_HEAD + "<OrvProgramFile>\n" + body(file) + "</Program>\n</OrvProgramFile>\n");

    stage.loadProgram(stage.makeBank(2), 1);
    stage.commands().postLoadProgram(stage.path("a.prg"));
    stage.commands().postSaveToProgram(stage.path("b.prg"), {});
    EXPECT_EQ(stage.current(), name + " 1 77 2");
    EXPECT_EQ(stage.folder.read("b.prg"), file);

    stage.loadProgram(stage.makeBank(3), 2);
    stage.commands().postLoadProgramFromString(text, 5);
    EXPECT_EQ(stage.current(), name + " 5 77 2");
    EXPECT_EQ(stage.commands().sendGetProgramAsString(), text);

    stage.commands().postLoadProgramFromString(text, 1);
    stage.commands().postSaveToCurrentBank(0, stage.dialog.handle());
    EXPECT_EQ(stage.names(), name + " P1 P2");
    EXPECT_EQ(body(stage.folder.read("a.bnk")), body(file));
}

TEST(Saving, IntoABankMakesItTheCurrentOneWithItsProgramOfTheCurrentNumber)
{
    ProgramStage stage;
    stage.loadProgram(stage.makeBank(3), 1);
    stage.folder.write("b.bnk", "<Bank>\n<Program name=\"Q0\"/>\n<Program name=\"Q1\"/>\n</Bank>\n");
    stage.setLayers({{}, {}, {}});
    stage.commands().postSaveToCurrentBank(2, stage.dialog.handle());
    EXPECT_EQ(stage.current(), "P1 1 101 2") << "loaded again as it was stored";
    EXPECT_EQ(stage.names(), "P0 P1 P1");
    stage.commands().postChangeProgramName("Mine");
    stage.commands().postSaveToBank(stage.path("b.bnk"), stage.dialog.handle());
    EXPECT_EQ(stage.current(), "Mine 1 101 2");
    EXPECT_EQ(stage.names(), "Q0 Mine");
    EXPECT_EQ(stage.orv->getBank().name, stage.path("b.bnk"));
    EXPECT_EQ(stage.results(), "w, w");
}

TEST(Saving, WhatCannotBeSavedStaysInMemoryAndTheDialogIsNotified)
{
    ProgramStage stage;
    const WindowHandle dialog = stage.dialog.handle();
    const std::string broken = "<Bank>\n<Program name=\"P\">\n</Bank>\n";
    stage.commands().postSaveToCurrentBank(0, dialog);
    EXPECT_EQ(stage.results(), "") << "a new user has no bank here";
    stage.loadProgram(stage.makeBank(2), 1);
    const std::string before = stage.folder.read("a.bnk");
    stage.folder.write("broken.bnk", broken);
    stage.commands().postChangeProgramName("Mine");
    stage.commands().postSaveToCurrentBank(-1, dialog);
    stage.commands().postSaveToBank("", dialog);
    stage.commands().postSaveToProgram("   ", dialog);
    EXPECT_EQ(stage.results(), "") << "nothing was asked for";
    stage.commands().postSaveToCurrentBank(2, dialog);
    stage.commands().postSaveToBank(stage.path("broken.bnk"), dialog);
    stage.commands().postSaveToBank(stage.path("no/bank.bnk"), dialog);
    stage.commands().postSaveToProgram(stage.path("no/folder.prg"), dialog);
    EXPECT_EQ(stage.results(), "f, f, f, f");
    stage.commands().postChangeProgramName("\xFF");
    EXPECT_EQ(stage.current(), "Mine 1 101 2");
    EXPECT_EQ(stage.folder.read("a.bnk"), before);
    EXPECT_EQ(stage.folder.read("broken.bnk"), broken);
    EXPECT_EQ(stage.folder.contents(), "a.bnk broken.bnk");
}

TEST(Saving, AnImportedPresetIsListedAndLoads)
{
    ProgramStage stage;
    const WindowHandle dialog = stage.dialog.handle();
    stage.folder.write("old.pst", "\nlayer\nL 0 0 0 1 0 127 0 127 0 0 3\nL 0\n");
    stage.folder.write("old.bnk", "P 1 A\nL 1\n");
    stage.commands().postImportVersion2Preset(stage.path("old.pst"), "Old one", dialog);
    stage.commands().postImportVersion2Preset(stage.path("old.bnk"), "Other", dialog);
    stage.commands().postImportVersion2Bank(stage.path("old.bnk"), stage.path("new.bnk"), dialog);
    stage.commands().postImportVersion2Program(stage.path("old.bnk"), "", dialog);
    stage.commands().postImportVersion2Program(stage.path("none.prg"), stage.path("new.prg"), dialog);
    const std::string preset = "data/Brinlow Software/Orvane 3/Layer Presets/Old one.pst";
    stage.rest();
    const std::string before = stage.folders.read(preset);
    EXPECT_NE(before, "");
    stage.commands().postImportVersion2Preset((stage.folders / preset).string(), "Old one", dialog);
    EXPECT_EQ(stage.results(), "w, f, w, f, f");
    EXPECT_EQ(stage.folders.read(preset), before);
    EXPECT_EQ(stage.orv->getLayerManager().getPresets().getList().getEntries(),
              (std::vector<PresetEntry>{{"Old one", false}}));
    stage.load(stage.path("new.bnk"));
    EXPECT_EQ(stage.current(), "A 0 120 1");
}

TEST(Bank, GrowsAndShrinksAndNoProgramIsCurrentBeyondItsEnd)
{
    ProgramStage stage;
    stage.loadProgram(stage.makeBank(4), 3);
    stage.commands().postChangeBankSize(2, stage.dialog.handle());
    EXPECT_EQ(stage.current(), "P1 1 101 2");
    EXPECT_EQ(stage.names(), "P0 P1");
    for (const int size : {4, 4, 0}) stage.commands().postChangeBankSize(size, stage.dialog.handle());
    EXPECT_EQ(stage.names(), "P0 P1 Empty Empty");
    EXPECT_EQ(stage.results(), "w, w");
    EXPECT_EQ(stage.changeProgram(Kind::specific, 3), "Empty 3 120 0");
    EXPECT_EQ(stage.orv->getTempo(), 120);
    stage.setLayers({{}});
    stage.commands().postSaveToCurrentBank(3, stage.dialog.handle());
    EXPECT_EQ(stage.current(), "Empty 3 120 1");
}

TEST(Bank, TheWindowIsNotifiedOfNamesBanksAndScreens)
{
    ProgramStage stage;
    const std::string bank = stage.makeBank(1);
    stage.openWindow();
    stage.commands().postSetDefaultBank(bank);
    stage.commands().postChangeProgramName("Mine");
    stage.commands().postSetScreenState({.help = true});
    EXPECT_EQ(stage.received([&](Message& message) -> std::string {
        if (message.number == GuiMessage::ORV_RESET) return "reset";
        if (const auto* path = message.payload.get<std::string>(); message.number == Settings::DEFAULT_BANK.number)
            return *path == bank ? "default" : "?";
        if (const auto* loaded = message.payload.get<Bank>()) return joined(loaded->programNames);
        const auto* program = message.payload.get<Program>();
        if (program == nullptr) return "";
        return (message.number == GuiMessage::PROGRAM_NAME ? "name " : "program ") + program->name;
    }),
              "default, P0, reset, program P0, name Mine");
    EXPECT_EQ(stage.orv->getRegistrySettings().getDefaultBank(), bank);
    EXPECT_EQ(stage.orv->getScreenState(), (ScreenState{.help = true}));
}
