#include <gtest/gtest.h>

#include <QAbstractButton>
#include <memory>
#include <string>
#include <vector>

#include "api/Bank.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/WindowMove.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "tests/gui/Windowed.h"

using namespace Backend;

namespace
{
/// A window, not yet open.
struct Window : Windowed<> {
    using Windowed::Windowed;

    /// With the screens given, as if it had been closed with them.
    void openWith(const ScreenState& screens)
    {
        open();
        showScreens(screens);
        settle();
    }
    QAbstractButton& compactButton(const char* label)
    {
        for (auto* button : surroundings.findChildren<QAbstractButton*>())
            if (button->text() == QLatin1String(label)) return *button;
        throw std::runtime_error(label);
    }
};

const ScreenState NONE{.system = false, .help = false, .computerInput = false, .output = false};
const ScreenState SYSTEM{.system = true, .help = false, .computerInput = false, .output = false};
constexpr QSize COMPACT(104, 33);
}  // namespace

TEST(MainWindow, IsThreeButtonsWhileNoScreenShows)
{
    Window stage;
    stage.commands().postChangeMidiThru({OnOffToggle::State::off}, true);
    stage.openWith(NONE);
    EXPECT_EQ(stage.size, COMPACT);
    EXPECT_TRUE(stage.compactButton("R").isVisible());
    EXPECT_FALSE(stage.compactButton("T").isChecked());
    QTest::mouseClick(&stage.compactButton("T"), Qt::LeftButton);
    stage.settle();
    EXPECT_TRUE(stage.orv->getRegistrySettings().getMidiThru());

    stage.gui->toggleScreen(Screen::system);
    EXPECT_FALSE(stage.compactButton("R").isVisible());
    EXPECT_GT(stage.size.width(), 700);
    EXPECT_EQ(stage.systemPanel, true);
    stage.gui->toggleScreen(Screen::system);
    EXPECT_EQ(stage.size, COMPACT);
    EXPECT_EQ(stage.systemPanel, false);
}

TEST(MainWindow, GrowsUpwardsWhereItsBottomEdgeIsDocked)
{
    Window stage;
    stage.openWith(SYSTEM);
    stage.moves.clear();
    const int before = stage.size.height();
    stage.gui->showScreen(Screen::help, true);
    EXPECT_TRUE(stage.moves.empty());
    stage.gui->showScreen(Screen::help, false);
    stage.commands().postSetDockToBottomEdge(true);
    stage.settle();
    stage.gui->showScreen(Screen::help, true);
    const int grown = stage.size.height() - before;
    EXPECT_EQ(stage.moves, (std::vector<std::string>{"," + std::to_string(-grown)}));
}

TEST(MainWindow, ComesBackWhereItWasIfThatIsOnAScreen)
{
    const auto movesFrom = [](const WindowsLib::Rect& last, bool docked, bool isVstPlugin) {
        Window stage;
        stage.commands().postSetLastWindowPosition(last);
        stage.commands().postSetDockToBottomEdge(docked);
        stage.makeGui(isVstPlugin ? Window::Host::plugin : Window::Host::program);
        stage.open();
        return stage.moves;
    };
    using Moves = std::vector<std::string>;
    EXPECT_EQ(movesFrom({30, 40, 100, 600}, false, false), Moves{"30,40"});
    EXPECT_EQ(movesFrom({30, 40, 100, 600}, false, true), Moves{}) << "a host of plug-ins places it itself";
    EXPECT_EQ(movesFrom({-1, -1, -1, -1}, false, false), Moves{});
    EXPECT_EQ(movesFrom({30000, 40, 30100, 600}, false, false), Moves{}) << "that screen is gone";
    const auto docked = movesFrom({30, 40, 100, 600}, true, false);
    ASSERT_EQ(docked.size(), 1u);
    EXPECT_NE(docked[0], "30,40") << "its bottom edge is where it was";
}

TEST(MainWindow, PassesMovesAndNoticesOnToItsSurroundings)
{
    Window stage;
    stage.openWith(SYSTEM);
    stage.moves.clear();
    stage.commands().postExecuteFunction(R"(<MoveWindow x="+10" y=""/>)");
    stage.commands().postExecuteFunction("<ShowSystem type=\"off\"/>");
    stage.commands().postChangeGlobalKeyboard({OnOffToggle::State::on}, true);
    stage.settle();
    EXPECT_EQ(stage.moves, std::vector<std::string>{"+10,"});
    EXPECT_FALSE(stage.gui->isScreenShowing(Screen::system));
    EXPECT_EQ(stage.globalKeyboard, true);
}

TEST(MainWindow, StandsBesideAnotherOfTheSameProcess)
{
    Window first;
    first.openWith(SYSTEM);
    auto second = std::make_unique<Window>();
    second->openWith(NONE);
    first.commands().postExecuteFunction("<ShowHelp type=\"on\"/>");
    second->commands().postChangeTempo({false, 77}, true);
    first.settle();
    second->settle();
    EXPECT_TRUE(first.gui->isScreenShowing(Screen::help));
    EXPECT_FALSE(second->gui->isScreenShowing(Screen::help));
    second.reset();
    first.gui->showScreen(Screen::help, false);
    EXPECT_FALSE(first.gui->create(first)) << "it is open";
}

TEST(MainWindow, LosesNothingElseWhenItIsLost)
{
    Window stage;
    stage.openWith(SYSTEM);
    const WindowHandle handle = stage.gui->getWindowHandle();
    stage.gui->destroy();
    EXPECT_FALSE(stage.gui->getWindowHandle());
    handle.post({.number = GuiMessage::BANK, .payload = Payload::of(Bank{})});  // freed, as the sanitizers see
    stage.press("C4");
    stage.playSlices();
    EXPECT_EQ(stage.played(), "C4 on");
    stage.gui->create(stage);
    stage.settle();
    EXPECT_TRUE(stage.gui->isScreenShowing(Screen::system));
    EXPECT_EQ(stage.orv->getScreenState(), SYSTEM);
    EXPECT_FALSE(stage.gui->getGuiMessageManagerMaster().wantMessage(GuiMessage::SETTINGS - 2));
}
