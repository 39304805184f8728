#include "gui/screens/setup/SetupDialog.h"

#include <QDir>
#include <QStackedWidget>

#include "api/HostState.h"
#include "api/OrvUtils.h"
#include "gui/framework/Properties.h"
#include "tests/gui/DialogHands.h"

using namespace Backend;

struct SetupDialog : DialogHands {
    SetupDialog() { click("Setup"); }

    Gui::Setup::SetupDialog* setup() const { return surroundings.findChild<Gui::Setup::SetupDialog*>(); }
    template <class Control = QWidget>
    Control& field(const QString& name)
    {
        settle();
        return control<Control>(name, *setup());
    }
    QListWidget& list(const QString& name) { return field<QListWidget>(name); }

    /// As by hand: to the page of the control first.
    QWidget& reach(const QString& name)
    {
        const auto& pages = *setup()->findChild<QStackedWidget*>();
        QListWidget& titles = list("Pages");
        for (int row = 0; row < pages.count(); ++row)
            if (pages.widget(row)->isAncestorOf(&field(name))) titles.setCurrentRow(row);
        EXPECT_TRUE(field(name).isVisible()) << name.toStdString();
        return field(name);
    }
    void flip(const QString& name) { QTest::mouseClick(&reach(name), Qt::LeftButton, {}, {5, 7}); }
    void enter(const QString& name, const QString& text)
    {
        QTest::mouseClick(&reach(name), Qt::LeftButton, {}, {5, 5});
        replaceText(field<QLineEdit>(name), text);
    }
    void flipPort(const QString& name, int row)
    {
        reach(name).setFocus();
        list(name).setCurrentRow(row);
        QTest::keyClick(&list(name), Qt::Key_Space);
    }
    /// "*In 1|In 2|", those that are enabled with an asterisk.
    std::string ports(const QString& name)
    {
        std::string all;
        for (int row = 0; row < list(name).count(); ++row)
            all += (list(name).item(row)->checkState() == Qt::Checked ? "*" : "") +
                   list(name).item(row)->text().toStdString() + "|";
        return all;
    }
    std::string shown(const QString& name) { return field<QLineEdit>(name).text().toStdString(); }
    bool isChecked(const QString& name) { return field<QCheckBox>(name).isChecked(); }
    /// Answers the message box that follows, and returns what it said.
    std::string press(const QString& button, Answer reply = Answer::Ok)
    {
        Hands::click(field<QAbstractButton>(button));
        return answer(reply);
    }

    using Switch = std::pair<const char*, bool (RegistrySettings::*)() const>;
    static constexpr Switch SWITCHES[] = {{"MIDI thru", &RegistrySettings::getMidiThru},
                                          {"Global keyboard", &RegistrySettings::getGlobalKeyboard},
                                          {"Record what is played", &RegistrySettings::isRetroRecordEnabled},
                                          {"Show input events", &RegistrySettings::getDisplayMidiInputEvents},
                                          {"Show output events", &RegistrySettings::getDisplayMidiOutputEvents},
                                          {"Number the lines", &RegistrySettings::getDisplayNumbers},
                                          {"Large font", &RegistrySettings::getLargeDisplayFont},
                                          {"Dock to bottom edge", &RegistrySettings::getDockToBottomEdge},
                                          {"Always on top", &RegistrySettings::getAlwaysOnTop},
                                          {"Metallic Border", &RegistrySettings::getUseSkinBorder}};

    /// As the dialog shows them, or as the backend has them.
    std::vector<bool> switches(bool shown)
    {
        std::vector<bool> all;
        for (const auto& [name, get] : SWITCHES) all.push_back(shown ? isChecked(name) : (settings().*get)());
        return all;
    }
    std::vector<bool> shownSwitches() { return switches(true); }
    std::vector<bool> setSwitches() { return switches(false); }

    // What it shows at first, what is entered, what the backend then has, and the limits with their unit.
    using Number = std::tuple<const char*, int, int, int, int, int, const char*, int (RegistrySettings::*)() const>;
    static constexpr Number NUMBERS[] = {
        {"Mouse sensitivity", 1, 4, 4, 1, 100, "", &RegistrySettings::getMouseSensitivity},
        {"Height of the display", 200, 60, 60, 60, 600, "", &RegistrySettings::getDisplayHeight},
        {"Buffer size", 100, 200000, 200000000, 1, 200000, "KB", &RegistrySettings::getRetroRecordBufferSize}};
};

TEST_F(SetupDialog, ChangesAreDoneAtOkAndNotBeforeAndNeverByCancel)
{
    auto before = setSwitches();
    player.requests.clear();
    for (const QString end : {"Escape", "Cancel", "OK"}) {
        EXPECT_EQ(shownSwitches(), before);
        for (const auto& [name, get] : SWITCHES) flip(name);
        enter("Height of the display", "300");
        flipPort("MIDI outputs", 2);
        EXPECT_EQ(setSwitches(), before);
        if (end == "Escape") QTest::keyClick(&reach("Height of the display"), Qt::Key_Escape);
        if (end != "Escape") press(end);
        playSlices();
        EXPECT_EQ(dialogs(), "");
        if (end == "OK") before.flip();
        EXPECT_EQ(setSwitches(), before) << end.toStdString();
        EXPECT_EQ(settings().getDisplayHeight(), end == "OK" ? 300 : 200);
        EXPECT_EQ(player.requests.empty(), end != "OK");
        click("Setup");
    }
}

TEST_F(SetupDialog, NumbersAreTakenWithinTheirLimits)
{
    for (const auto& [name, first, entered, stored, lowest, highest, unit, get] : NUMBERS) {
        EXPECT_EQ(shown(name), std::to_string(first)) << name;
        const int before = (settings().*get)();
        const std::string limits = std::to_string(lowest) + unit + " and " + std::to_string(highest) + unit;
        for (const QString& text : {QString::number(lowest - 1), QString::number(highest + 1), {}, {"x"}}) {
            enter(name, text);
            list("Pages").setCurrentRow(0);
            EXPECT_EQ(press("OK"), std::string("Invalid entry: ") + name + " must be between " + limits);
            EXPECT_TRUE(field(name).isVisible()) << "it is where the fault is";
            EXPECT_EQ((settings().*get)(), before) << name;
        }
        enter(name, QString::number(entered));
        press("OK", Answer::Yes);
        EXPECT_EQ((settings().*get)(), stored) << name;
        ASSERT_EQ(dialogs(), "") << name;
        click("Setup");
    }
}

TEST_F(SetupDialog, WhatLosesSomethingIsDoneOnlyAfterAYesToEachQuestion)
{
    enter("Buffer size", "200");
    flip("Large font");
    reach("Default bank");
    press("Current bank as default");
    for (const bool yes : {false, true}) {
        EXPECT_TRUE(press("OK", Answer::Yes).starts_with("Confirm: \"Three.bnk\""));
        EXPECT_EQ(settings().getRetroRecordBufferSize(), 100000);
        EXPECT_EQ(answer(yes ? Answer::Yes : Answer::No),
                  "Confirm: Changing the retrospective record buffer size will clear all existing data. Continue?");
        EXPECT_EQ(settings().getRetroRecordBufferSize(), yes ? 200000 : 100000);
        EXPECT_EQ(settings().getLargeDisplayFont(), yes) << "all or nothing";
        EXPECT_EQ(settings().getDefaultBank() == path("Three.bnk"), yes);
        EXPECT_EQ(dialogs(), yes ? "" : "Setup");
    }
}

TEST_F(SetupDialog, PortsHaveABoxEach)
{
    auto ins = inputs({"In 1", "In 2", "In 3"});
    ins[1].found = false;
    ins[2].couldNotOpen = true;
    ins[2].enabled = false;
    commands().postSetMidiInputPorts(ins);
    EXPECT_EQ(ports("MIDI inputs"), "*In 1|*In 2 (Not Found)|In 3|") << "as they are now";
    EXPECT_EQ(ports("MIDI outputs"), "*Out 1|*Out 2|*Out 3|");
    std::string labels;
    for (const auto* label : setup()->findChildren<QLabel*>())
        if (label->isVisible()) labels += label->text().toStdString() + "|";
    EXPECT_NE(labels.find("Couldn't open: In 3|"), std::string::npos) << labels;

    player.requests.clear();
    flipPort("MIDI inputs", 0);
    flipPort("MIDI inputs", 2);
    flipPort("MIDI outputs", 1);
    press("OK");
    playSlices();
    EXPECT_EQ(player.requests, (std::vector<std::string>{"input 0 off", "input 2 on", "output 1 off"}));
    EXPECT_FALSE(orv->getMidiInputPorts()[0].enabled);
    EXPECT_EQ(settings().getEnabledMidiInputs(), (std::vector<bool>{false, false, true}));
    EXPECT_EQ(settings().getEnabledMidiOutputs(), (std::vector<bool>{false, false}));
}

TEST_F(SetupDialog, BothEndsOfALoopbackPortCannotBeEnabled)
{
    // The user enables one end; the other one is enabled.
    using Row = std::tuple<const char*, const char*, bool>;
    for (const auto& [loopback, other, isInput] : {Row{"MIDI Yoke NT:  1", "In 1", true},
                                                   {"An Internal MIDI port", "In 1", true},
                                                   {"MIDI Yoke 1", "MIDI Yoke 1 ", false}}) {
        auto ins = inputs({loopback, "In 1"});
        auto outs = outputs({loopback, other});
        ins[0].enabled = !isInput;
        outs[0].enabled = isInput;
        commands().postSetMidiInputPorts(ins);
        commands().postSetMidiOutputPorts(outs);
        settle();
        const char* ports = isInput ? "MIDI inputs" : "MIDI outputs";
        flipPort(ports, 0);
        EXPECT_EQ(press("OK"),
                  "Invalid entry: Invalid MIDI loopback port settings. Cannot enable input and output simultaneously.");
        EXPECT_TRUE(list(ports).isVisible()) << "where the user was";
        flipPort(ports, 0);
        press("OK");
        EXPECT_EQ(dialogs(), "") << "any other port may be at both ends, and names that differ are others";
        click("Setup");
    }
}

TEST_F(SetupDialog, ChoicesAreFromLists)
{
    auto outs = outputs({"Out 1", "Out 2", "Out 3"});
    outs[1].enabled = false;
    commands().postSetMidiOutputPorts(outs);
    EXPECT_EQ(shown("Default MIDI output"), "Out 1");
    QTest::keyClick(&reach("Default MIDI output"), Qt::Key_Down);
    EXPECT_EQ(shown("Default MIDI output"), "Out 3") << "one that is open";
    Hands::click(reach("Default MIDI output"));
    EXPECT_EQ(menu(), "Out 1, -Out 2 (Not Enabled), *Out 3");
    choose("Out 3");
    press("OK");
    EXPECT_EQ(settings().getDefaultMidiOutput(), 2);
}

TEST_F(SetupDialog, TheDefaultBankIsAFileThatIsThere)
{
    enter("Default bank", "/nowhere/no.bnk");
    EXPECT_EQ(press("OK"), "Invalid entry: There is no bank \"/nowhere/no.bnk\".");
    press("Current bank as default");
    EXPECT_EQ(shown("Default bank"), path("Three.bnk"));
    EXPECT_EQ(
        press("OK", Answer::Yes),
        "Confirm: \"Three.bnk\" becomes the default bank and is loaded now: what was not saved is lost. Continue?");
    EXPECT_EQ(settings().getDefaultBank(), path("Three.bnk"));

    folder.write("Other.bnk", "<Bank>\n<Program name=\"Other\">\n</Program>\n</Bank>\n");
    click("Setup");
    reach("Default bank");
    press("Choose default bank");
    QTest::qWait(50);
    auto& name = *setup()->findChild<QLineEdit*>("fileNameEdit");
    QTest::keyClicks(&name, QString::fromStdString(path("Other.bnk")));
    confirm(name);
    EXPECT_EQ(shown("Default bank"), path("Other.bnk"));
    EXPECT_EQ(settings().getDefaultBank(), path("Three.bnk"));
    const QString here = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(folder.string()));
    enter("Default bank", "Other.bnk");
    press("OK", Answer::Yes);
    QDir::setCurrent(here);
    EXPECT_EQ(settings().getDefaultBank(), path("Other.bnk")) << "it is found from anywhere";
    EXPECT_EQ(orv->getProgram().name, "Other") << "it is loaded at once";

    click("Setup");
    enter("Default bank", "");
    press("OK");
    EXPECT_EQ(settings().getDefaultBank(), "");
    EXPECT_EQ(orv->getProgram().name, "Other");
}

TEST_F(SetupDialog, OkPostsOnlyWhatWasChanged)
{
    flip("Large font"), flip("Large font");
    enter("Height of the display", "200");
    // What is in the backend alone stays, because nothing is posted.
    settings().setDisplayHeight(99);
    settings().setAlwaysOnTop(true);
    settings().setDefaultBank("else");
    player.requests.clear();
    press("OK");
    EXPECT_EQ(dialogs(), "");
    playSlices();
    EXPECT_EQ(settings().getDisplayHeight(), 99);
    EXPECT_TRUE(settings().getAlwaysOnTop());
    EXPECT_EQ(settings().getDefaultBank(), "else");
    EXPECT_TRUE(player.requests.empty());
}

TEST_F(SetupDialog, FieldsThatAreNotTouchedFollowAndTheOthersStay)
{
    flip("Large font");
    enter("Mouse sensitivity", "7");
    flipPort("MIDI inputs", 1);
    commands().postSetLargeDisplayFont(true);
    commands().postSetMouseSensitivity(3);
    commands().postSetAlwaysOnTop(true);
    commands().postSetUseSkinBorder(false);
    commands().postSetDockToBottomEdge(true);
    commands().postSetRetroRecordBufferSize(55000);
    commands().postEnableRetroRecord(false);
    commands().postChangeMidiThru({OnOffToggle::State::toggle}, true);
    commands().postChangeGlobalKeyboard({OnOffToggle::State::on}, true);
    commands().postChangeDefaultMidiOutput({.kind = SelectType::Kind::specific, .value = 1});
    commands().postEnableMidiInput(0, false);
    commands().postSetDisplayHeight(90);
    commands().postRefreshGui();
    EXPECT_EQ(shownSwitches(), setSwitches());
    EXPECT_EQ(shown("Mouse sensitivity"), "7");
    EXPECT_EQ(shown("Buffer size"), "55");
    EXPECT_EQ(shown("Height of the display"), "90");
    EXPECT_EQ(shown("Default MIDI output"), "Out 2");
    EXPECT_EQ(ports("MIDI inputs"), "In 1|In 2|*In 3|");
    commands().postSetMidiInputPorts(inputs({"In 1", "In 2", "In 3", "In 4"}));
    EXPECT_EQ(ports("MIDI inputs"), "*In 1|In 2|*In 3|*In 4|");
    commands().postSetMidiInputPorts(inputs({"In 1"}));
    EXPECT_EQ(ports("MIDI inputs"), "*In 1|");
    EXPECT_EQ(press("OK"), "");
    EXPECT_EQ(settings().getMouseSensitivity(), 7);
}

TEST_F(SetupDialog, TypingInItNeverPlaysAndMidiPlaysOn)
{
    for (QWidget* candidate : setup()->findChildren<QWidget*>())
        if (candidate->focusPolicy() != Qt::NoFocus && qobject_cast<QAbstractButton*>(candidate) == nullptr)
            for (const auto key : {Qt::Key_A, Qt::Key_Z}) QTest::keyClick(candidate, key);
    for (const auto& [name, get] : SWITCHES) QTest::keyClick(&reach(name), Qt::Key_Q);
    EXPECT_EQ(played(), "");
    Stage::press("C4");
    EXPECT_EQ(played(), "C4 on");
    press("Cancel");
    EXPECT_TRUE(isPlayingAgain());
}

TEST_F(SetupDialog, IsOneOnlyAndGoesWithTheWindow)
{
    gui->showSetupDialog();
    EXPECT_EQ(surroundings.findChildren<Gui::Setup::SetupDialog*>().size(), 1);
    flip("Large font");
    enter("Height of the display", "0");
    Hands::click(field<QAbstractButton>("OK"));
    EXPECT_EQ(dialogs(), "Invalid entry, Setup");
    gui->destroy();
    EXPECT_EQ(setup(), nullptr);
    gui->showSetupDialog();
    EXPECT_EQ(setup(), nullptr) << "there is no window";
    open();
    EXPECT_EQ(setup(), nullptr);
    EXPECT_FALSE(settings().getLargeDisplayFont());
    click("Setup");
    EXPECT_EQ(dialogs(), "Setup");
    EXPECT_FALSE(isChecked("Large font"));
}

TEST_F(SetupDialog, AHostThatExecutesThemHasSettingsForSoundAndClocks)
{
    EXPECT_EQ(list("Pages").findItems("Audio", Qt::MatchExactly).size(), 0);
    EXPECT_EQ(shown("Install folder"), OrvUtils::getOrvProgDir());
    gui->destroy();
    gui->end();
    HostSettings got;
    orv->useHostSettings(
        {.changed = [&](const HostSettings& settings) { got = settings; }, .overrides = {.clockIn = true}});
    makeGui(Host::program);
    open();
    click("Setup");
    for (const bool clock : {false, true})
        EXPECT_EQ(reach(clock ? "Input of the MIDI clock" : "Output of the MIDI clock")
                      .property(Gui::Property::HELP)
                      .toString()
                      .contains("The command line replaces it"),
                  clock);
    enter("Sound font", "/nowhere/no.sf2");
    EXPECT_EQ(press("OK"), "Invalid entry: There is no sound font \"/nowhere/no.sf2\".");
    enter("Sound font", QString::fromStdString(path("Three.bnk")));
    enter("JACK client name", "a:b");
    EXPECT_EQ(press("OK"), "Invalid entry: The JACK client name has at most 63 bytes and no colon.");
    enter("JACK client name", "stage");
    enter("Volume of the synthesizer", "40");
    flip("Reverb"), flip("Connect the synthesizer at the start"), flip("Follow the JACK transport");
    QTest::keyClick(&reach("Input of the MIDI clock"), Qt::Key_Down);
    for (int times = 0; times < 2; ++times) QTest::keyClick(&reach("Output of the MIDI clock"), Qt::Key_Down);
    EXPECT_EQ(press("OK"), "");
    EXPECT_EQ(got, (HostSettings{40, false, path("Three.bnk"), "stage", false, 0, 1, true}));
    EXPECT_EQ(settings().getHostSettings(), got);
}
