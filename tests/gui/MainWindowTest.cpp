#include <QScrollArea>

#include "api/Bank.h"
#include "backend/display/DisplayMessageManager.h"
#include "backend/messages/SettingMessages.h"
#include "backend/model/WindowMove.h"
#include "tests/gui/WindowStage.h"

using namespace Backend;
using Moves = std::vector<std::string>;

struct MainWindow : WindowStage, testing::Test {
    static constexpr ScreenState SYSTEM{.system = true, .help = false, .computerInput = false, .output = false};
    static constexpr QSize COMPACT{104, 33};
};

TEST_F(MainWindow, IsThreeButtonsWhileNoScreenShows)
{
    commands().postChangeMidiThru({OnOffToggle::State::off}, true);
    open(NO_SCREENS);
    EXPECT_EQ(size, COMPACT);
    EXPECT_EQ(control<QPushButton>("Reset").text(), "R");
    EXPECT_FALSE(control<QPushButton>("MIDI thru").isChecked());
    click(control("MIDI thru"));
    EXPECT_TRUE(settings().getMidiThru());

    gui->toggleScreen(Screen::system);
    EXPECT_NE(control<QPushButton>("Reset").text(), "R");
    EXPECT_GT(size.width(), 700);
    EXPECT_EQ(systemPanel, true);
    gui->toggleScreen(Screen::system);
    EXPECT_EQ(size, COMPACT);
    EXPECT_EQ(systemPanel, false);

    press("C4");
    EXPECT_EQ(played(), "C4 on");
    QTest::mousePress(&control("Reset"), Qt::LeftButton);
    EXPECT_NE(played().find("C4 off"), std::string::npos) << "it resets as it goes down";
    reopen();
    EXPECT_EQ(size, COMPACT) << "as it was stored";
    const QPoint background(100, 31);
    QContextMenuEvent event(QContextMenuEvent::Mouse, background, surroundings.mapToGlobal(background));
    QApplication::sendEvent(control("Playing keyboard").parentWidget(), &event);
    EXPECT_EQ(
        menu(),
        "System, Help, Display, Oscillators, Joystick, MIDI input, Keys, Controls, Output, Layers, CC, Zones, Show "
        "the screens");
    choose("Show the screens");
    EXPECT_TRUE(gui->isScreenShowing(Screen::system)) << "nobody is locked out";
    gui->showScreen(Screen::help, true);
    gui->showScreen(Screen::system, false);
    EXPECT_EQ(control<QPushButton>("Reset").text(), "R") << "always there";
    gui->showScreen(Screen::system, true);
    gui->setCompact(true);
    EXPECT_EQ(size, COMPACT);
    gui->setCompact(false);
    EXPECT_TRUE(gui->isScreenShowing(Screen::system) && gui->isScreenShowing(Screen::help)) << "as they were";

    gui->showScreen(Screen::zones, true);
    EXPECT_TRUE(gui->isScreenShowing(Screen::output)) << "it is inside";
    EXPECT_TRUE(control<QPushButton>("Zone screen").isChecked());
    gui->showScreen(Screen::output, false);
    EXPECT_FALSE(gui->isScreenShowing(Screen::zones) || control<QPushButton>("Zone screen").isChecked());
    gui->showScreen(Screen::output, true);
    EXPECT_TRUE(gui->isScreenShowing(Screen::zones)) << "it comes back with it";
    reopen();
    EXPECT_TRUE(gui->isScreenShowing(Screen::zones));
}

TEST_F(MainWindow, IsScaledAsAWholeToWholePixelsAndColouredByItsSkin)
{
    open({.system = true, .help = true, .display = true, .computerInput = true, .output = true});
    const QSize whole = size;
    const auto placeOf = [this](const char* name) {
        const QWidget& control = this->control(name);
        return QRect(control.mapTo(&surroundings, QPoint()), control.size());
    };
    const QRect reset = placeOf("Reset");
    EXPECT_EQ(reset.size(), QSize(64, 48));
    for (const int percent : {75, 125, 150, 175, 200}) {
        gui->setScale(percent);
        settle();
        const double scale = percent / 100.0;
        EXPECT_EQ(size.width(), qRound(whole.width() * scale)) << percent;
        EXPECT_NEAR(size.height(), whole.height() * scale, 20) << percent;
        EXPECT_EQ(placeOf("Reset").size(), QSize(qRound(64 * scale), qRound(48 * scale)));
        EXPECT_EQ(control<QLineEdit>("Tempo").font().pixelSize(), qRound(24 * scale));
        for (const char* framed : {"Default MIDI output", "Fill of the record"}) {
            const QImage picture = control(framed).grab().toImage();
            const QColor border = gui->getGdiManager().getColour(Gui::GdiManager::Role::controlBorder);
            for (const QPoint corner : {picture.rect().topLeft(), picture.rect().topRight(),
                                        picture.rect().bottomLeft(), picture.rect().bottomRight()})
                EXPECT_EQ(picture.pixelColor(corner), border) << percent << " " << framed;
        }
    }
    EXPECT_EQ(settings().get<Settings::WINDOW_SCALE>(), 200);
    gui->setScale(100);
    EXPECT_EQ(size, whole);
    EXPECT_EQ(placeOf("Reset"), reset);

    surroundings.resize(whole.width(), 400);
    QApplication::processEvents();
    for (const char* above : {"Reset", "Status"})
        EXPECT_TRUE(surroundings.rect().contains(placeOf(above))) << "it never scrolls away";
    auto& last = control("Music keyboard");
    EXPECT_TRUE(last.visibleRegion().isEmpty());
    auto& view = *surroundings.findChild<QScrollArea*>();
    view.ensureWidgetVisible(&last);
    EXPECT_FALSE(last.visibleRegion().isEmpty()) << "the rest scrolls";

    commands().postSetting(SETTING<Settings::SKIN>(2));
    settle();
    EXPECT_EQ(gui->getGdiManager().getColour(Gui::GdiManager::Role::background), QColor(Qt::white));
    EXPECT_EQ(control("Playing keyboard").parentWidget()->grab().toImage().pixelColor(1, 1), QColor(Qt::white));
}

TEST_F(MainWindow, GrowsUpwardsWhereItsBottomEdgeIsDockedAndMovesWhenItIsAskedTo)
{
    open(SYSTEM);
    moves.clear();
    const int before = size.height();
    gui->showScreen(Screen::help, true);
    EXPECT_TRUE(moves.empty());
    gui->showScreen(Screen::help, false);
    commands().postSetDockToBottomEdge(true);
    settle();
    gui->showScreen(Screen::help, true);
    EXPECT_EQ(moves, Moves{"," + std::to_string(before - size.height())});
    moves.clear();
    commands().postExecuteFunction(R"(<MoveWindow x="+10" y=""/>)");
    commands().postExecuteFunction("<ShowSystem type=\"off\"/>");
    commands().postChangeGlobalKeyboard({OnOffToggle::State::on}, true);
    settle();
    EXPECT_FALSE(gui->isScreenShowing(Screen::system));
    EXPECT_EQ(moves.at(0), "+10,");
    EXPECT_EQ(globalKeyboard, true);
}

TEST(WindowPosition, IsThatOfTheLastTimeIfItIsOnAScreen)
{
    using Host = WindowStage::Host;
    const auto movesFrom = [](const WindowsLib::Rect& last, bool docked, Host host) {
        WindowStage stage;
        stage.commands().postSetLastWindowPosition(last);
        stage.commands().postSetDockToBottomEdge(docked);
        stage.makeGui(host);
        stage.open();
        return stage.moves;
    };
    EXPECT_EQ(movesFrom({30, 40, 100, 600}, false, Host::program), Moves{"30,40"});
    EXPECT_EQ(movesFrom({30, 40, 100, 600}, false, Host::plugin), Moves{}) << "a host of plug-ins places it itself";
    EXPECT_EQ(movesFrom({-1, -1, -1, -1}, false, Host::program), Moves{});
    EXPECT_EQ(movesFrom({30000, 40, 30100, 600}, false, Host::program), Moves{}) << "that screen is gone";
    const auto docked = movesFrom({30, 40, 100, 780}, true, Host::program);
    EXPECT_NE(docked.at(0), "30,40") << "its bottom edge is where it was";
}

TEST_F(MainWindow, StandsBesideAnotherOfTheSameProcessAndLosesNothingElseWhenItIsLost)
{
    open(SYSTEM);
    auto second = std::make_unique<WindowStage>();
    second->open(NO_SCREENS);
    commands().postExecuteFunction("<ShowHelp type=\"on\"/>");
    second->commands().postChangeTempo({false, 77}, true);
    settle();
    second->settle();
    EXPECT_TRUE(gui->isScreenShowing(Screen::help));
    EXPECT_FALSE(second->gui->isScreenShowing(Screen::help));
    second.reset();
    gui->showScreen(Screen::help, false);
    EXPECT_FALSE(gui->create(*this)) << "it is open";

    const WindowHandle handle = gui->getWindowHandle();
    gui->destroy();
    EXPECT_FALSE(gui->getWindowHandle());
    handle.post({.number = GuiMessage::BANK, .payload = Payload::of(Bank{})});  // freed, as the sanitizers see
    orv->getDisplayMessageManager().postResendText();
    press("C4");
    playSlices();
    EXPECT_EQ(played(), "C4 on");
    gui->create(*this);
    settle();
    EXPECT_TRUE(gui->isScreenShowing(Screen::system));
    EXPECT_EQ(orv->getScreenState(), SYSTEM);
    EXPECT_FALSE(gui->getGuiMessageManagerMaster().wantMessage(GuiMessage::SETTINGS - 2));
}
