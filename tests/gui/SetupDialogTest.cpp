#include "gui/screens/setup/SetupDialog.h"

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QStackedWidget>
#include <map>
#include <string>

#include "backend/files/RegistrySettings.h"
#include "backend/model/Program.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/Properties.h"
#include "tests/gui/DialogHands.h"

using namespace Backend;

namespace
{
struct SetupDialog : DialogHands {
    SetupDialog() { openDialog(); }

    void openDialog()
    {
        click("Setup");
        settle();
    }
    Gui::Setup::SetupDialog* setup() { return surroundings.findChild<Gui::Setup::SetupDialog*>(); }

    template <class Control = QWidget>
    Control& field(const QString& name)
    {
        for (auto* candidate : setup()->findChildren<Control*>())
            if (candidate->accessibleName() == name) return *candidate;
        throw std::runtime_error("no field " + name.toStdString());
    }
    QListWidget& list(const QString& name) { return field<QListWidget>(name); }

    /// As by hand: to the page of the control first.
    template <class Control = QWidget>
    Control& reach(const QString& name)
    {
        auto& found = field<Control>(name);
        auto& pages = *setup()->findChild<QStackedWidget*>();
        QListWidget& titles = list("Pages");
        for (int row = 0; row < pages.count(); ++row)
            if (pages.widget(row)->isAncestorOf(&found))
                QTest::mouseClick(titles.viewport(), Qt::LeftButton, {},
                                  titles.visualItemRect(titles.item(row)).center());
        EXPECT_TRUE(found.isVisible()) << name.toStdString();
        return found;
    }
    void flip(const QString& name) { QTest::mouseClick(&reach(name), Qt::LeftButton, {}, {5, 7}); }
    void enter(const QString& name, const QString& text)
    {
        QTest::mouseClick(&reach(name), Qt::LeftButton, {}, {5, 5});
        field<QLineEdit>(name).selectAll();
        QTest::keyClick(&field(name), Qt::Key_Delete);
        QTest::keyClicks(&field(name), text);
    }
    /// By the keys of the list.
    void flipPort(const QString& name, int row)
    {
        QListWidget& ports = reach<QListWidget>(name);
        ports.setFocus();
        QTest::keyClick(&ports, Qt::Key_Home);
        for (int i = 0; i < row; ++i) QTest::keyClick(&ports, Qt::Key_Down);
        QTest::keyClick(&ports, Qt::Key_Space);
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

    void press(const QString& button)
    {
        QTest::mouseClick(&field<QAbstractButton>(button), Qt::LeftButton);
        settle();
    }
    bool isOpen()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return setup() != nullptr;
    }
    RegistrySettings& settings() { return orv->getRegistrySettings(); }
    std::string stored()
    {
        settle();
        const std::string key = "Brinlow Software/A test/3.2";
        settings().saveToRegistry(key);
        return key;
    }
};

struct SwitchCase {
    const char* name;
    bool (RegistrySettings::*get)() const;
};
constexpr SwitchCase SWITCHES[] = {
    {"MIDI thru", &RegistrySettings::getMidiThru},
    {"Global keyboard", &RegistrySettings::getGlobalKeyboard},
    {"Click before or after zone transposes zone.", &RegistrySettings::getClickZoneChannelTranspose},
    {"Record what is played", &RegistrySettings::isRetroRecordEnabled},
    {"Show input events", &RegistrySettings::getDisplayMidiInputEvents},
    {"Show output events", &RegistrySettings::getDisplayMidiOutputEvents},
    {"Number the lines", &RegistrySettings::getDisplayNumbers},
    {"Large font", &RegistrySettings::getLargeDisplayFont},
    {"Dock to bottom edge", &RegistrySettings::getDockToBottomEdge},
    {"Always on top", &RegistrySettings::getAlwaysOnTop},
    {"Metallic Border", &RegistrySettings::getUseSkinBorder},
    {"Stack Notes", &RegistrySettings::getLiteStackNotes}};

struct NumberCase {
    const char* name;
    const char* first;
    const char* good;
    int stored;
    const char* bad[2];
    const char* refusal;
    int (RegistrySettings::*get)() const;
};
constexpr NumberCase NUMBERS[] = {
    {"Mouse sensitivity",
     "1",
     "4",
     4,
     {"0", "101"},
     "must be between 1 and 100",
     &RegistrySettings::getMouseSensitivity},
    {"Height of the display",
     "200",
     "60",
     60,
     {"59", "601"},
     "must be between 60 and 600",
     &RegistrySettings::getDisplayHeight},
    {"Velocity", "100", "127", 127, {"0", "128"}, "must be between 1 and 127", &RegistrySettings::getLiteVelocity},
    {"Buffer size",
     "100",
     "200000",
     200000000,
     {"0", "200001"},
     "must be between 1KB and 200000KB",
     &RegistrySettings::getRetroRecordBufferSize}};
}  // namespace

TEST_F(SetupDialog, SwitchesAreDoneAtOkAndNotBefore)
{
    for (const SwitchCase& row : SWITCHES) {
        const bool first = (settings().*row.get)();
        EXPECT_EQ(isChecked(row.name), first) << row.name;
        flip(row.name);
        settle();
        EXPECT_EQ(isChecked(row.name), !first) << row.name;
        EXPECT_EQ((settings().*row.get)(), first) << row.name;
    }
    std::map<std::string, bool> before;
    for (const SwitchCase& row : SWITCHES) before[row.name] = (settings().*row.get)();
    press("OK");
    EXPECT_FALSE(isOpen());
    for (const SwitchCase& row : SWITCHES) EXPECT_NE((settings().*row.get)(), before[row.name]) << row.name;
}

TEST_F(SetupDialog, NumbersAreTakenWithinTheirLimits)
{
    for (const NumberCase& row : NUMBERS) {
        EXPECT_EQ(shown(row.name), row.first) << row.name;
        const int before = (settings().*row.get)();
        for (const char* text : {row.bad[0], row.bad[1], "", "x"}) {
            enter(row.name, text);
            list("Pages").setCurrentRow(0);
            press("OK");
            EXPECT_EQ(answer(), std::string("Invalid entry: ") + row.name + " " + row.refusal) << text;
            EXPECT_TRUE(field(row.name).isVisible()) << "it is where the fault is";
            EXPECT_EQ((settings().*row.get)(), before) << row.name;
        }
        enter(row.name, row.good);
        press("OK");
        if (!said().empty()) answer(Answer::Yes);
        EXPECT_EQ((settings().*row.get)(), row.stored) << row.name;
        ASSERT_FALSE(isOpen()) << row.name;
        openDialog();
    }
}

TEST_F(SetupDialog, WhatLosesSomethingIsDoneOnlyAfterAYesToEachQuestion)
{
    const std::string question =
        "Confirm: Changing the retrospective record buffer size will clear all existing data. Continue?";
    enter("Buffer size", "200");
    flip("Large font");
    reach("Default bank");
    press("Current bank as default");
    press("OK");
    EXPECT_TRUE(said().starts_with("Confirm: \"Three.bnk\"")) << said();
    answer(Answer::Yes);
    EXPECT_EQ(answer(Answer::No), question);
    EXPECT_TRUE(setup()->isVisible());
    EXPECT_EQ(settings().getRetroRecordBufferSize(), 100000);
    EXPECT_FALSE(settings().getLargeDisplayFont()) << "all or nothing";
    press("OK");
    EXPECT_TRUE(said().starts_with("Confirm: \"Three.bnk\"")) << said();
    answer(Answer::Yes);
    EXPECT_EQ(said(), question) << "each is asked";
    EXPECT_EQ(settings().getRetroRecordBufferSize(), 100000);
    answer(Answer::Yes);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(settings().getRetroRecordBufferSize(), 200000);
    EXPECT_TRUE(settings().getLargeDisplayFont());
}

TEST_F(SetupDialog, PortsHaveABoxEach)
{
    auto ins = inputs({"In 1", "In 2", "In 3"});
    ins[1].found = false;
    ins[2].couldNotOpen = true;
    ins[2].enabled = false;
    commands().postSetMidiInputPorts(ins);
    settle();
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
    const std::string refusal =
        "Invalid entry: Invalid MIDI loopback port settings. Cannot enable input and output simultaneously.";
    for (const char* name : {"MIDI Yoke NT:  1", "An Internal MIDI port"}) {
        auto ins = inputs({"In 1", name});
        ins[1].enabled = false;
        commands().postSetMidiInputPorts(ins);
        commands().postSetMidiOutputPorts(outputs({name, "In 1"}));
        settle();
        flipPort("MIDI inputs", 1);
        press("OK");
        EXPECT_EQ(answer(), refusal) << name;
        EXPECT_TRUE(list("MIDI inputs").isVisible());
        flipPort("MIDI inputs", 1);
        press("OK");
        EXPECT_FALSE(isOpen()) << "any other port may be at both ends";
        EXPECT_FALSE(orv->getMidiInputPorts()[1].enabled);
        openDialog();
    }
    commands().postSetMidiInputPorts(inputs({"MIDI Yoke 1"}));
    auto outs = outputs({"MIDI Yoke 1", "MIDI Yoke 1 "});
    outs[0].enabled = false;
    commands().postSetMidiOutputPorts(outs);
    settle();
    flipPort("MIDI outputs", 0);
    press("OK");
    EXPECT_EQ(answer(), refusal);
    EXPECT_TRUE(list("MIDI outputs").isVisible()) << "where the user was";
    flipPort("MIDI outputs", 0);
    press("OK");
    EXPECT_FALSE(isOpen()) << "the names differ";
}

TEST_F(SetupDialog, ChoicesAreFromLists)
{
    auto outs = outputs({"Out 1", "Out 2", "Out 3"});
    outs[1].enabled = false;
    commands().postSetMidiOutputPorts(outs);
    settle();
    EXPECT_EQ(shown("Default MIDI output"), "Out 1");
    QTest::keyClick(&reach("Default MIDI output"), Qt::Key_Down);
    EXPECT_EQ(shown("Default MIDI output"), "Out 3") << "one that is open";
    EXPECT_EQ(shown("Channel"), "1");
    QTest::mouseClick(&reach("Channel"), Qt::LeftButton);
    EXPECT_EQ(menu(), "*1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16");
    choose("10");
    press("OK");
    EXPECT_EQ(settings().getDefaultMidiOutput(), 2);
    EXPECT_EQ(settings().getLiteChannel(), 9);
}

TEST_F(SetupDialog, TheDefaultBankIsAFileThatIsThere)
{
    const std::string path = (folder / "Three.bnk").string();
    enter("Default bank", "/nowhere/no.bnk");
    press("OK");
    EXPECT_EQ(answer(), "Invalid entry: There is no bank \"/nowhere/no.bnk\".");
    press("Current bank as default");
    EXPECT_EQ(shown("Default bank"), path);
    const std::string before = settings().getDefaultBank();
    press("OK");
    EXPECT_EQ(said(),
              "Confirm: \"Three.bnk\" will be loaded at every start, and now: what was not saved is lost. Continue?");
    answer(Answer::No);
    EXPECT_EQ(settings().getDefaultBank(), before);
    press("OK");
    answer(Answer::Yes);
    EXPECT_EQ(settings().getDefaultBank(), path);

    folder.write("Other.bnk", "<Bank>\n<Program name=\"Other\">\n</Program>\n</Bank>\n");
    openDialog();
    reach("Default bank");
    press("Choose default bank");
    auto* files = setup()->findChild<QFileDialog*>();
    ASSERT_NE(files, nullptr);
    QTest::qWait(50);
    auto* name = files->findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(name, nullptr);
    QTest::keyClicks(name, QString::fromStdString((folder / "Other.bnk").string()));
    QTest::keyClick(name, Qt::Key_Return);
    settle();
    EXPECT_EQ(shown("Default bank"), (folder / "Other.bnk").string());
    EXPECT_EQ(settings().getDefaultBank(), path);
    const QString here = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString((folder / "").string()));
    enter("Default bank", "Other.bnk");
    press("OK");
    answer(Answer::Yes);
    QDir::setCurrent(here);
    EXPECT_EQ(settings().getDefaultBank(), (folder / "Other.bnk").string()) << "it is found from anywhere";
    EXPECT_EQ(orv->getProgram().name, "Other") << "it is loaded at once";

    openDialog();
    enter("Default bank", "");
    press("OK");
    EXPECT_EQ(settings().getDefaultBank(), "");
    EXPECT_EQ(orv->getProgram().name, "Other");
}

TEST_F(SetupDialog, OkPostsOnlyWhatWasChanged)
{
    press("OK");
    EXPECT_FALSE(isOpen());
    openDialog();
    flip("Large font"), flip("Large font");
    enter("Velocity", "100");
    // What is in the backend alone stays, because nothing is posted.
    settings().setLiteVelocity(99);
    settings().setAlwaysOnTop(true);
    settings().setDefaultBank("else");
    player.requests.clear();
    press("OK");
    playSlices();
    EXPECT_EQ(settings().getLiteVelocity(), 99);
    EXPECT_TRUE(settings().getAlwaysOnTop());
    EXPECT_EQ(settings().getDefaultBank(), "else");
    EXPECT_TRUE(player.requests.empty());
}

TEST_F(SetupDialog, CancelChangesNothing)
{
    for (const bool byKey : {false, true}) {
        for (const SwitchCase& row : SWITCHES) flip(row.name);
        for (const NumberCase& row : NUMBERS) enter(row.name, row.good);
        flipPort("MIDI outputs", 2);
        std::vector<bool> before;
        for (const SwitchCase& row : SWITCHES) before.push_back((settings().*row.get)());
        player.requests.clear();
        if (byKey)
            QTest::keyClick(&reach("Velocity"), Qt::Key_Escape);
        else
            press("Cancel");
        settle();
        playSlices();
        EXPECT_FALSE(isOpen());
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_EQ((settings().*SWITCHES[i].get)(), before[i]) << SWITCHES[i].name;
        EXPECT_EQ(settings().getRetroRecordBufferSize(), 100000);
        EXPECT_TRUE(player.requests.empty());
        openDialog();
    }
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
    commands().postSetClickZoneChannelTranspose(true);
    commands().postSetRetroRecordBufferSize(55000);
    commands().postEnableRetroRecord(false);
    commands().postChangeMidiThru({OnOffToggle::State::toggle}, true);
    commands().postChangeGlobalKeyboard({OnOffToggle::State::on}, true);
    commands().postChangeDefaultMidiOutput({.kind = SelectType::Kind::specific, .value = 1});
    commands().postEnableMidiInput(0, false);
    commands().postSetLiteVelocity(9);
    commands().postRefreshGui();
    settle();
    for (const SwitchCase& row : SWITCHES) EXPECT_EQ(isChecked(row.name), (settings().*row.get)()) << row.name;
    EXPECT_EQ(shown("Mouse sensitivity"), "7");
    EXPECT_EQ(shown("Buffer size"), "55");
    EXPECT_EQ(shown("Velocity"), "9");
    EXPECT_EQ(shown("Default MIDI output"), "Out 2");
    EXPECT_EQ(ports("MIDI inputs"), "In 1|In 2|*In 3|");
    commands().postSetMidiInputPorts(inputs({"In 1", "In 2", "In 3", "In 4"}));
    settle();
    EXPECT_EQ(ports("MIDI inputs"), "*In 1|In 2|*In 3|*In 4|");
    commands().postSetMidiInputPorts(inputs({"In 1"}));
    settle();
    EXPECT_EQ(ports("MIDI inputs"), "*In 1|");
    press("OK");
    EXPECT_EQ(said(), "");
    EXPECT_EQ(settings().getMouseSensitivity(), 7);
}

TEST_F(SetupDialog, TypingInItNeverPlaysAndMidiPlaysOn)
{
    keys.count = 0;
    for (QWidget* candidate : setup()->findChildren<QWidget*>())
        if (candidate->focusPolicy() != Qt::NoFocus && qobject_cast<QAbstractButton*>(candidate) == nullptr) {
            QTest::keyClick(candidate, Qt::Key_A);
            QTest::keyClick(candidate, Qt::Key_Z);
        }
    for (const SwitchCase& row : SWITCHES) QTest::keyClick(&reach(row.name), Qt::Key_Q);
    EXPECT_EQ(keys.count, 0);
    settle();
    EXPECT_EQ(takePlayed(), "");
    Stage::press("C4");
    EXPECT_EQ(played(), "C4 on");
    press("Cancel");
    surroundings.activateWindow();
    QTest::qWait(1);
    EXPECT_TRUE(isPlaying());
}

TEST_F(SetupDialog, IsOneOnlyAndGoesWithTheWindow)
{
    gui->showSetupDialog();
    EXPECT_EQ(surroundings.findChildren<Gui::Setup::SetupDialog*>().size(), 1);
    flip("Large font");
    enter("Velocity", "0");
    press("OK");
    EXPECT_NE(said(), "");
    gui->destroy();
    EXPECT_EQ(setup(), nullptr);
    gui->showSetupDialog();
    EXPECT_EQ(setup(), nullptr) << "there is no window";
    ASSERT_TRUE(gui->create(*this));
    settle();
    EXPECT_EQ(setup(), nullptr);
    EXPECT_FALSE(settings().getLargeDisplayFont());
    openDialog();
    ASSERT_NE(setup(), nullptr);
    EXPECT_TRUE(setup()->isVisible());
    EXPECT_FALSE(isChecked("Large font"));
}
