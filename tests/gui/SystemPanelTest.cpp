#include "gui/screens/system/ScreenButtons.h"

#include <QFileInfo>
#include <QStandardPaths>

#include "api/HostStatus.h"
#include "backend/model/Recovery.h"
#include "gui/framework/EditPoster.h"
#include "tests/gui/WindowStage.h"

using namespace Backend;

struct SystemPanel : OpenWindow, testing::Test {
    /// As the backend has it: "P0 120".
    std::string program()
    {
        settle();
        return orv->getProgram().name + " " + std::to_string(orv->getProgram().tempo);
    }
    /// What a control says to a screen reader.
    std::string said(const QString& name)
    {
        return QAccessible::queryAccessibleInterface(&control(name))->text(QAccessible::Value).toStdString();
    }
    /// Those in the list that is open, with "*" before the current one.
    static std::string listed()
    {
        std::string all;
        const auto& list = *QApplication::activePopupWidget()->findChild<QListWidget*>();
        for (int row = 0; row < list.count(); ++row)
            if (!list.item(row)->isHidden())
                all += (row == list.currentRow() ? "*" : "") + list.item(row)->text().toStdString() + "|";
        return all;
    }
    void typeInList(const QString& text, Qt::Key end)
    {
        auto& search = *QApplication::activePopupWidget()->findChild<QLineEdit*>();
        QTest::keyClicks(&search, text);
        QTest::keyClick(&search, end);
        surroundings.activateWindow();
        settle();
    }
};

TEST_F(SystemPanel, ProgramsAreChosenByArrowsAndFromTheListAndTheKeysPlayAfterwards)
{
    EXPECT_EQ(said("Program"), "1 P0");
    for (const std::string expected : {"P1", "P2", "P2"}) {
        click("Next program");
        EXPECT_EQ(program(), expected + " 120");
    }
    EXPECT_EQ(said("Program"), "3 P2");
    click("Previous program");
    EXPECT_EQ(program(), "P1 120");
    Hands::wheel(control("Program"), 1);
    EXPECT_EQ(program(), "P1 120") << "the wheel changes nothing";

    click("Program");
    EXPECT_EQ(listed(), "1  P0|*2  P1|3  P2|");
    auto& search = *QApplication::activePopupWidget()->findChild<QLineEdit*>();
    QTest::keyClicks(&search, "p2");
    EXPECT_EQ(listed(), "*3  P2|");
    typeInList("", Qt::Key_Return);
    EXPECT_EQ(program(), "P2 120");
    EXPECT_TRUE(QTest::qWaitFor([&] { return isPlaying(); }));
    EXPECT_EQ(played(), "");
    gui->showProgramMenu();
    typeInList("1", Qt::Key_Escape);
    EXPECT_EQ(program(), "P2 120");
    gui->showScreen(Screen::system, false);
    gui->showProgramMenu();
    typeInList("2", Qt::Key_Return);
    EXPECT_EQ(program(), "P1 120") << "also while the panel is hidden";
}

TEST_F(SystemPanel, AProgramIsRenamedFromItsMenu)
{
    const auto rename = [this](const QString& name) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, control("Program").mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&control("Program"), &event);
        choose("Rename...");
        auto& dialog = *surroundings.findChild<QDialog*>();
        EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::FramelessWindowHint)) << "its frame is the window's";
        replaceText(*dialog.findChild<QLineEdit*>(), name);
        QTest::keyClick(&dialog, Qt::Key_Return);
        surroundings.activateWindow();
        settle();
    };
    rename("My <Piano>");
    EXPECT_EQ(program(), "My <Piano> 120");
    EXPECT_EQ(said("Program"), "1 My <Piano> *");
    const auto pressZ = [this](Qt::KeyboardModifiers modifiers) {
        comeBack();
        QTest::keyClick(surroundings.focusWidget(), Qt::Key_Z, modifiers);
        settle();
        return said("Program") + ", " + said("Status");
    };
    EXPECT_EQ(pressZ(Qt::ControlModifier), "1 P0, Undone: program name");
    EXPECT_EQ(pressZ(Qt::ControlModifier), "1 P0, Nothing to undo");
    EXPECT_EQ(pressZ(Qt::ControlModifier | Qt::ShiftModifier), "1 My <Piano> *, Redone: program name");
    load(noteKey("Control Z", "C5"));
    settle();
    EXPECT_EQ(pressZ(Qt::ControlModifier).substr(0, 14), "1 My <Piano> *") << "the program binds the key";
    EXPECT_EQ(played(), "C5 on");
    EXPECT_TRUE(QTest::qWaitFor([&] { return isPlaying(); }));
}

TEST_F(SystemPanel, TheStatusLineSaysWhatIsWrongUntilItIsPutRightAndWhatWasDoneForAWhile)
{
    EXPECT_EQ(said("Keys"), "KEYS PLAY");
    edit("Tempo").setFocus();
    EXPECT_EQ(said("Keys"), "TYPING");
    comeBack();
    EXPECT_EQ(said("Status"), "Output: Out 1");
    gui->showHostStatus({.system = "JACK 48000 Hz"});
    EXPECT_EQ(said("Status"), "Output: Out 1   JACK 48000 Hz");
    auto ports = outputs({"Out 1"});
    ports[0].couldNotOpen = true;
    commands().postSetMidiOutputPorts(ports);
    EXPECT_EQ(said("Status"), "No sound: \"Out 1\" could not be opened. Setup");
    gui->showHostStatus({.trouble = "no JACK server is running"});
    EXPECT_EQ(said("Status"), "No sound: no JACK server is running. Setup");
    gui->displayMessage("Saved");
    EXPECT_EQ(said("Status"), "Saved");
    EXPECT_TRUE(QTest::qWaitFor([&] { return said("Status").starts_with("No sound"); }, 20000));
    click("Status");
    EXPECT_FALSE(surroundings.findChildren<QDialog*>().empty()) << "where it is put right";
    ports[0].couldNotOpen = false;
    commands().postSetMidiOutputPorts(ports);
    EXPECT_EQ(said("Status"), "Output: Out 1");

    gui->showHostStatus({.activeInputs = 0b101});
    EXPECT_EQ(said("MIDI input"), "In 1, In 3");
}

TEST_F(SystemPanel, ATempoIsTypedOrSteppedWithinItsLimits)
{
    const std::pair<const char*, int> ROWS[] = {{"140", 140}, {"300", 250}, {"5", 20},   {"0", 20},
                                                {"100", 100}, {"+5", 105},  {"-15", 90}, {"-90", 20},
                                                {"", 20},     {"+", 20},    {"9x9", 99}};
    for (const auto& [typed, tempo] : ROWS) {
        type("Tempo", typed);
        EXPECT_EQ(key("Tempo", Qt::Key_Return), std::to_string(tempo)) << typed;
        EXPECT_EQ(program(), "P0 " + std::to_string(tempo)) << typed;
        EXPECT_TRUE(isPlaying());
    }
    type("Tempo", "200");
    EXPECT_EQ(program(), "P0 99") << "half a number is no tempo";
    EXPECT_EQ(key("Tempo", Qt::Key_Escape), "99");
    EXPECT_EQ(program(), "P0 99");
    EXPECT_EQ(played(), "");

    commands().postChangeTempo({.relative = false, .value = 120}, true);
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
    EXPECT_EQ(wheel("Tempo source", -1), "Internal") << "the wheel changes nothing";
    EXPECT_EQ(key("Tempo source", Qt::Key_Down), "In 1");
    EXPECT_EQ(key("Tempo source", Qt::Key_Down), "In 3") << "nothing comes in at the second";
    EXPECT_EQ(orv->getTempoSource(), 2);
    Hands::click(control("Tempo source"));
    EXPECT_EQ(menu(), "Internal, In 1, -In 2 (Not Enabled), *In 3");
    choose("Internal");
    EXPECT_EQ(orv->getTempoSource(), -1);
    commands().postSetTempoSource(1, true);
    EXPECT_EQ(textOf("Tempo source"), "In 2 (Not Enabled)") << "as it is";
    commands().postSetMidiInputPorts(inputs({"In 1"}));
    EXPECT_EQ(textOf("Tempo source"), "???");
}

TEST_F(SystemPanel, TheDefaultOutputIsOneThatIsOpen)
{
    auto ports = outputs({"Out 1", "Out 2", "Out 3", "Out 4"});
    ports[1].couldNotOpen = true;
    ports[2].enabled = false;
    commands().postSetMidiOutputPorts(ports);
    EXPECT_EQ(textOf("Default MIDI output"), "Out 1");
    gui->showScreen(Screen::system, false);
    gui->showDefaultMidiOutputMenu();
    EXPECT_EQ(menu(), "*Out 1, -Out 2 (Couldn't Open), -Out 3 (Not Enabled), Out 4");
    choose("Out 4");
    gui->showScreen(Screen::system, true);
    EXPECT_EQ(settings().getDefaultMidiOutput(), 3);
    EXPECT_EQ(textOf("Default MIDI output"), "Out 4");
    wheel("Default MIDI output", 1);
    EXPECT_EQ(settings().getDefaultMidiOutput(), 3) << "the wheel changes nothing";
    key("Default MIDI output", Qt::Key_Up);
    EXPECT_EQ(settings().getDefaultMidiOutput(), 0);

    commands().postChangeDefaultMidiOutput({.kind = SelectType::Kind::up});
    EXPECT_EQ(textOf("Default MIDI output"), "Out 4");
    commands().postSetMidiOutputPorts(outputs({"Out 1"}));
    EXPECT_EQ(textOf("Default MIDI output"), "???");
    commands().postSetMidiOutputPorts({});
    gui->handleDefaultMidiOutputChanged(-1);
    EXPECT_EQ(textOf("Default MIDI output"), "None");
}

TEST_F(SystemPanel, SwitchesAreWhatTheBackendHasAndResetEndsEveryNote)
{
    const std::tuple<const char*, bool (RegistrySettings::*)() const, bool> SWITCHES[] = {
        {"MIDI thru", &RegistrySettings::getMidiThru, true},
        {"Global keyboard", &RegistrySettings::getGlobalKeyboard, false},
        {"Record what is played", &RegistrySettings::isRetroRecordEnabled, true}};
    for (const auto& [name, get, first] : SWITCHES) {
        EXPECT_EQ(button(name).isChecked(), first) << name;
        for (const bool expected : {!first, first, !first}) {
            click(name);
            EXPECT_EQ((settings().*get)(), expected) << name;
            EXPECT_EQ(button(name).isChecked(), expected) << name;
        }
    }
    commands().postChangeMidiThru({OnOffToggle::State::on}, true);
    commands().postChangeGlobalKeyboard({OnOffToggle::State::off}, true);
    commands().postEnableRetroRecord(true);
    for (const auto& [name, get, first] : SWITCHES) EXPECT_EQ(button(name).isChecked(), first) << name;

    press("C4");
    EXPECT_EQ(played(), "C4 on");
    QTest::mousePress(&button("Reset"), Qt::LeftButton);
    EXPECT_NE(played().find("C4 off"), std::string::npos) << "it resets as it goes down";
}

TEST_F(SystemPanel, NoticesAreAnsweredByNothing)
{
    const auto all = [this] {
        settle();
        const auto& now = orv->getRegistrySettings();
        return std::tuple(program(), orv->getProgram().number, orv->getTempoSource(), now.getDefaultMidiOutput(),
                          now.getMidiThru(), now.getGlobalKeyboard(), now.isRetroRecordEnabled());
    };
    const auto before = all();
    gui->handleProgramChanged({.name = "Other", .number = 1, .tempo = 77, .tempoSource = 1});
    gui->handleDefaultMidiOutputChanged(2);
    gui->handleMidiThruChanged(!settings().getMidiThru());
    gui->handleGlobalKeyboardChanged(true);
    gui->handleRetroRecordEnabledChanged(!settings().isRetroRecordEnabled());
    gui->handleMidiOutputPortsChanged(outputs({"A", "B", "C"}));
    gui->handleMidiInputPortsChanged(inputs({"D", "E"}));
    EXPECT_EQ(said("Program") + textOf("Tempo") + textOf("Tempo source") + textOf("Default MIDI output"),
              "2 Other77EC");
    EXPECT_EQ(all(), before);
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
    EXPECT_FALSE(button("Help screen").isChecked());
    EXPECT_THROW(button("System screen"), std::runtime_error);

    auto& screens = dynamic_cast<Gui::System::ScreenButtons&>(*button("Help screen").parentWidget());
    const auto buttons = screens.findChildren<QAbstractButton*>();
    EXPECT_EQ(buttons.size(), 11);
    for (const auto* shown : buttons) {
        const int needed = shown->fontMetrics().horizontalAdvance(shown->text());
        EXPECT_LE(needed, shown->width() - 4) << shown->text().toStdString();
        EXPECT_TRUE(screens.rect().contains(shown->geometry())) << "there is room for all";
    }
}

TEST_F(SystemPanel, TheRecordIsSavedIntoTheMusicFolder)
{
    qputenv("HOME", QByteArray::fromStdString((folder / "home").string()));
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString((folder / "config").string()));
    const auto help = [this] { return control("Help").property("plainText").toString().toStdString(); };
    const auto fill = [this] { return said("Fill of the record"); };
    click("Save record");
    EXPECT_EQ(help(), "Nothing was recorded since the record was last saved.");
    EXPECT_EQ(fill(), "0% full");
    press("C4"), release("C4");
    playSlices(4);
    EXPECT_EQ(fill(), "1% full");
    click("Save record");
    EXPECT_EQ(fill(), "0% full");
    const std::string before = "The record was saved as ";
    ASSERT_TRUE(help().starts_with(before)) << help();
    const QFileInfo file(QString::fromStdString(help().substr(before.size(), help().size() - before.size() - 1)));
    EXPECT_TRUE(QFile::remove(file.filePath())) << help();
    EXPECT_EQ(file.path(), QStandardPaths::writableLocation(QStandardPaths::MusicLocation));
    EXPECT_TRUE(file.fileName().startsWith("record 20") && file.fileName().endsWith("_Out 1.mid")) << help();
}

TEST_F(SystemPanel, WhatWasRestoredCanBeDiscardedUntilTheSecondEdit)
{
    const auto report = [this](RecoveryResult result) {
        Backend::notify(gui->getWindowHandle(), GuiMessage::RECOVERY, result, "/recovery-1");
        settle();
    };
    const QWidget& discard = control("Discard what was restored");
    EXPECT_FALSE(discard.isVisible());
    report(RecoveryResult::restored);
    for (const bool isOffered : {true, false}) {
        EXPECT_TRUE(discard.isVisible());
        gui->getEdits().change("Program", 0, {"tempo", isOffered ? "70" : "80"}, "tempo",
                               gui->getEdits().beginGesture());
        settle();
        EXPECT_EQ(discard.isVisible(), isOffered);
    }
    report(RecoveryResult::restored);
    EXPECT_FALSE(discard.isVisible()) << "told once, whenever all data are reported again";
    report(RecoveryResult::unreadable);
    EXPECT_FALSE(discard.isVisible());
    EXPECT_EQ(said("Status"), "What was not saved cannot be read; the file is kept as \"/recovery-1\".");
}
