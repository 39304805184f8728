#include <gtest/gtest.h>

#include <QAccessible>

#include <QDir>
#include <QLabel>

#include "backend/files/RegistrySettings.h"
#include "backend/model/Program.h"
#include "gui/framework/Properties.h"
#include "gui/screens/system/ScreenButtons.h"
#include "tests/gui/OpenWindow.h"

using namespace Backend;

namespace
{
struct SystemPanel : OpenWindow, testing::Test {
    /// As the backend has it: "P0 120".
    std::string program()
    {
        settle();
        return orv->getProgram().name + " " + std::to_string(orv->getProgram().tempo);
    }
    int programNumber()
    {
        settle();
        return orv->getProgram().number;
    }
    /// What the labels say, one after the other.
    std::string labels()
    {
        std::string all;
        for (const auto* label : control("Tempo").parentWidget()->findChildren<QLabel*>())
            all += label->text().toStdString() + "|";
        return all;
    }
    RegistrySettings& settings() { return orv->getRegistrySettings(); }
};
}  // namespace

TEST_F(SystemPanel, ProgramsAreChosenByArrowsWheelKeysAndMenu)
{
    EXPECT_EQ(textOf("Program"), "P0");
    EXPECT_EQ(labels(), "Program|1|Bank|Three|3 programs|Tempo|Clock|Output|Files|");
    for (const char* expected : {"P1", "P2", "P2"}) {
        click("Next program");
        EXPECT_EQ(textOf("Program") + " 120", program());
        EXPECT_EQ(textOf("Program"), expected);
    }
    EXPECT_NE(labels().find("Program|3|"), std::string::npos);
    click("Previous program");
    EXPECT_EQ(programNumber(), 1);
    EXPECT_EQ(wheel("Program", 1), "P0");
    EXPECT_EQ(wheel("Program", 1), "P0");
    EXPECT_EQ(key("Program", Qt::Key_Down), "P1");
    EXPECT_EQ(programNumber(), 1);

    gui->showProgramMenu();
    EXPECT_EQ(menu(), "1: P0, *2: P1, 3: P2");
    choose("3: P2");
    EXPECT_EQ(program() + textOf("Program"), "P2 120P2");
}

TEST_F(SystemPanel, ANameIsTypedInPlaceAndNeverPlays)
{
    type("Program", "My <Piano>");
    EXPECT_EQ(program(), "P0 120") << "not before Enter";
    key("Program", Qt::Key_Return);
    EXPECT_EQ(program(), "My <Piano> 120");
    EXPECT_EQ(textOf("Program"), "My <Piano>");
    EXPECT_TRUE(isPlaying());
    EXPECT_EQ(keys.count, 0);
    QTest::keyClick(&button("MIDI thru"), Qt::Key_A);
    EXPECT_EQ(keys.count, 2) << "what no text takes comes through";
    gui->showProgramMenu();
    EXPECT_EQ(menu(), "*1: P0, 2: P1, 3: P2") << "what the bank holds";
    choose("1: P0");
    EXPECT_EQ(textOf("Program"), "P0");

    type("Program", "Other");
    key("Program", Qt::Key_Escape);
    type("Program", "  ");
    key("Program", Qt::Key_Return);
    EXPECT_EQ(program() + textOf("Program"), "P0 120P0");

    type("Program", "P2");
    QTest::mouseClick(&control("Program"), Qt::LeftButton, {}, {control("Program").width() - 5, 10});
    EXPECT_EQ(menu(), "*1: P0, 2: P1, 3: P2") << "looking at the list is no typing";
    choose("1: P0");
    type("Program", "Elsewhere");
    click("MIDI thru");
    EXPECT_EQ(program(), "Elsewhere 120") << "a click beside it ends it";
    EXPECT_TRUE(isPlaying());
}

TEST_F(SystemPanel, WhatIsBeingTypedStaysUntilAnotherProgramComes)
{
    type("Program", "Half a na");
    commands().postChangeTempo({.relative = false, .value = 90}, true);
    settle();
    EXPECT_EQ(textOf("Program"), "Half a na");
    type("Tempo", "1");
    EXPECT_EQ(program(), "Half a na 90");
    commands().postChangeProgramName("Told");
    settle();
    EXPECT_EQ(textOf("Tempo"), "1");
    EXPECT_EQ(textOf("Program"), "Told");

    type("Program", "For the old one");
    commands().postChangeProgram({.kind = SelectType::Kind::up});
    settle();
    EXPECT_EQ(textOf("Program"), "P1");
    click("MIDI thru");
    EXPECT_EQ(program(), "P1 120");
}

TEST_F(SystemPanel, ATempoIsTypedWithinItsLimits)
{
    struct Row {
        const char* typed;
        int tempo;
    };
    const Row rows[] = {{"140", 140}, {"300", 250}, {"5", 20}, {"0", 20}, {"100", 100}, {"+5", 105},
                        {"-15", 90},  {"-90", 20},  {"", 20},  {"+", 20}, {"9x9", 99}};
    for (const Row& row : rows) {
        type("Tempo", row.typed);
        key("Tempo", Qt::Key_Return);
        EXPECT_EQ(program(), "P0 " + std::to_string(row.tempo)) << row.typed;
        EXPECT_EQ(textOf("Tempo"), std::to_string(row.tempo)) << row.typed;
        EXPECT_TRUE(isPlaying());
    }
    type("Tempo", "200");
    EXPECT_EQ(program(), "P0 99") << "half a number is no tempo";
    key("Tempo", Qt::Key_Escape);
    EXPECT_EQ(program() + textOf("Tempo"), "P0 9999");
    EXPECT_EQ(keys.count, 0);
}

TEST_F(SystemPanel, ATempoIsSteppedByWheelAndKeys)
{
    EXPECT_EQ(wheel("Tempo", 3), "123");
    EXPECT_EQ(wheel("Tempo", -1), "122");
    EXPECT_EQ(wheel("Tempo", 1, Qt::ShiftModifier), "134");
    EXPECT_EQ(key("Tempo", Qt::Key_Up), "135");
    EXPECT_EQ(key("Tempo", Qt::Key_Down, Qt::ShiftModifier), "123");
    EXPECT_EQ(key("Tempo", Qt::Key_PageDown), "113");
    EXPECT_EQ(wheel("Tempo", 200), "250");
    EXPECT_EQ(program(), "P0 250");
    EXPECT_EQ(wheel("Tempo", 1, Qt::ShiftModifier), "250");
    EXPECT_EQ(wheel("Tempo", -300), "20");
}

TEST_F(SystemPanel, TheTempoComesFromTheInternalClockOrAnInput)
{
    EXPECT_EQ(textOf("Tempo source"), "Internal");
    commands().postEnableMidiInput(1, false);
    settle();
    EXPECT_EQ(wheel("Tempo source", -1), "In 1");
    EXPECT_EQ(wheel("Tempo source", -1), "In 3") << "nothing comes in at the second";
    EXPECT_EQ(orv->getTempoSource(), 2);
    QTest::mouseClick(&control("Tempo source"), Qt::LeftButton);
    EXPECT_EQ(menu(), "Internal, In 1, -In 2 (Not Enabled), *In 3");
    choose("Internal");
    EXPECT_EQ(orv->getTempoSource(), -1);
    commands().postSetTempoSource(1, true);
    settle();
    EXPECT_EQ(textOf("Tempo source"), "In 2 (Not Enabled)") << "as it is";
    commands().postSetMidiInputPorts(inputs({"In 1"}));
    settle();
    EXPECT_EQ(textOf("Tempo source"), "???");
}

TEST_F(SystemPanel, TheDefaultOutputIsOneThatIsOpen)
{
    auto ports = outputs({"Out 1", "Out 2", "Out 3", "Out 4"});
    ports[1].couldNotOpen = true;
    ports[2].enabled = false;
    commands().postSetMidiOutputPorts(ports);
    settle();
    EXPECT_EQ(textOf("Default MIDI output"), "Out 1");
    gui->showDefaultMidiOutputMenu();
    EXPECT_EQ(menu(), "*Out 1, -Out 2 (Couldn't Open), -Out 3 (Not Enabled), Out 4");
    choose("Out 4");
    EXPECT_EQ(settings().getDefaultMidiOutput(), 3);
    EXPECT_EQ(textOf("Default MIDI output"), "Out 4");
    wheel("Default MIDI output", 1);
    EXPECT_EQ(settings().getDefaultMidiOutput(), 0);

    commands().postChangeDefaultMidiOutput({.kind = SelectType::Kind::up});
    settle();
    EXPECT_EQ(textOf("Default MIDI output"), "Out 4");
    commands().postSetMidiOutputPorts(outputs({"Out 1"}));
    settle();
    EXPECT_EQ(textOf("Default MIDI output"), "???");
    commands().postSetMidiOutputPorts({});
    gui->handleDefaultMidiOutputChanged(-1);
    EXPECT_EQ(textOf("Default MIDI output"), "None");
}

TEST_F(SystemPanel, MenusOpenAtThePointerWhileThePanelIsHidden)
{
    gui->showScreen(Screen::system, false);
    gui->showProgramMenu();
    EXPECT_EQ(menu(), "*1: P0, 2: P1, 3: P2");
    choose("2: P1");
    EXPECT_EQ(program(), "P1 120");
    gui->showDefaultMidiOutputMenu();
    EXPECT_EQ(menu(), "*Out 1, Out 2, Out 3");
    choose("Out 3");
    EXPECT_EQ(settings().getDefaultMidiOutput(), 2);
}

TEST_F(SystemPanel, SwitchesAreWhatTheBackendHas)
{
    using Get = bool (RegistrySettings::*)() const;
    struct Row {
        const char* name;
        Get get;
    };
    for (const Row& row : {Row{"MIDI thru", &RegistrySettings::getMidiThru},
                           {"Global keyboard", &RegistrySettings::getGlobalKeyboard},
                           {"Record what is played", &RegistrySettings::isRetroRecordEnabled}}) {
        const bool first = (settings().*row.get)();
        const auto& shown = button(row.name);
        for (const bool expected : {!first, first}) {
            EXPECT_EQ(shown.isChecked(), !expected) << row.name;
            click(row.name);
            EXPECT_EQ((settings().*row.get)(), expected) << row.name;
            EXPECT_EQ(shown.isChecked(), expected) << row.name;
        }
    }
    commands().postChangeMidiThru({OnOffToggle::State::toggle}, true);
    commands().postChangeGlobalKeyboard({OnOffToggle::State::toggle}, true);
    commands().postEnableRetroRecord(false);
    settle();
    EXPECT_FALSE(button("MIDI thru").isChecked());
    EXPECT_TRUE(button("Global keyboard").isChecked());
    EXPECT_FALSE(button("Record what is played").isChecked());
}

TEST_F(SystemPanel, ResetEndsEveryNoteAsItGoesDown)
{
    press("C4");
    EXPECT_EQ(played(), "C4 on");
    QTest::mousePress(&button("Reset"), Qt::LeftButton);
    settle();
    EXPECT_NE(played().find("C4 off"), std::string::npos);
}

TEST_F(SystemPanel, NoticesAreAnsweredByNothing)
{
    const std::string before = program();
    const auto thru = settings().getMidiThru();
    const auto record = settings().isRetroRecordEnabled();
    gui->handleProgramChanged({.name = "Told", .number = 1, .tempo = 77, .tempoSource = 1});
    gui->handleDefaultMidiOutputChanged(2);
    gui->handleMidiThruChanged(!thru);
    gui->handleGlobalKeyboardChanged(true);
    gui->handleRetroRecordEnabledChanged(!record);
    gui->handleMidiOutputPortsChanged(outputs({"A", "B", "C"}));
    gui->handleMidiInputPortsChanged(inputs({"D", "E"}));
    EXPECT_EQ(textOf("Program") + textOf("Tempo") + textOf("Tempo source") + textOf("Default MIDI output"), "Told77EC");
    EXPECT_EQ(program(), before);
    EXPECT_EQ(programNumber(), 0);
    EXPECT_EQ(orv->getTempoSource(), -1);
    EXPECT_EQ(settings().getDefaultMidiOutput(), 0);
    EXPECT_EQ(settings().getMidiThru(), thru);
    EXPECT_FALSE(settings().getGlobalKeyboard());
    EXPECT_EQ(settings().isRetroRecordEnabled(), record);
}

TEST_F(SystemPanel, ScreensHaveButtonsThatFollowThem)
{
    EXPECT_TRUE(button("Help screen").isChecked());
    EXPECT_FALSE(button("Display screen").isChecked());
    click("Display screen");
    EXPECT_TRUE(gui->isScreenShowing(Screen::display));
    EXPECT_TRUE(isPlaying());
    gui->toggleScreen(Screen::display);
    EXPECT_FALSE(button("Display screen").isChecked());
    orv->toggleHelp();
    settle();
    EXPECT_FALSE(button("Help screen").isChecked());
    EXPECT_THROW(button("Oscillator screen"), std::runtime_error) << "it is not there";
    EXPECT_THROW(button("System screen"), std::runtime_error);
}

TEST_F(SystemPanel, ThereIsRoomForTheButtonsOfAllScreens)
{
    auto& screens = dynamic_cast<Gui::System::ScreenButtons&>(*button("Help screen").parentWidget());
    for (int screen = 1; screen < 12; ++screen) screens.offerScreen(static_cast<Screen>(screen));
    const auto buttons = screens.findChildren<QAbstractButton*>();
    EXPECT_EQ(buttons.size(), 11);
    for (const auto* shown : buttons) {
        EXPECT_LE(shown->fontMetrics().horizontalAdvance(shown->text()), shown->width() - 4)
            << shown->text().toStdString();
        EXPECT_TRUE(screens.rect().contains(shown->geometry()));
    }
}

TEST_F(SystemPanel, TheRecordIsSavedIntoTheMusicFolder)
{
    const QByteArray home = qgetenv("HOME");
    const QByteArray config = qgetenv("XDG_CONFIG_HOME");
    qputenv("HOME", (folder / "home").c_str());
    qputenv("XDG_CONFIG_HOME", (folder / "config").c_str());
    click("Save record");
    EXPECT_EQ(control<QWidget>("Help").property("plainText").toString(),
              "Nothing was recorded since the record was last saved.");
    const auto fill = [this] {
        settle();
        return QAccessible::queryAccessibleInterface(&control("Fill of the record"))->text(QAccessible::Value);
    };
    EXPECT_EQ(fill(), "0% full");
    press("C4"), release("C4");
    playSlices(4);
    EXPECT_EQ(fill(), "1% full");
    click("Save record");
    EXPECT_EQ(fill(), "0% full");
    const QString text = control<QWidget>("Help").property("plainText").toString();
    const QStringList files = QDir(QString::fromStdString((folder / "home" / "Music").string())).entryList(QDir::Files);
    ASSERT_EQ(files.size(), 1);
    EXPECT_TRUE(files[0].startsWith("record 20") && files[0].endsWith("_Out 1.mid")) << files[0].toStdString();
    EXPECT_TRUE(text.startsWith("The record was saved as ") && text.contains(files[0])) << text.toStdString();
    qputenv("HOME", home);
    config.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", config);
}
