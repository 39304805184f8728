#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>
#include <QWidget>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "backend/core/GuiMessages.h"
#include "backend/core/ScreenState.h"
#include "backend/core/WindowMove.h"
#include "backend/persistence/Bank.h"
#include "backend/persistence/RegistrySettings.h"
#include "gui/OrvGuiIF.h"
#include "gui/ParentWindow.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "tests/stage/Stage.h"

using namespace Backend;

namespace
{
/// A host that writes down what it is told.
struct Surroundings final : Gui::ParentWindow {
    QWidget* getWidget() override { return &widget; }
    void windowResized(int width, int height) override { size = {width, height}; }
    void moveWindow(const RelativeFixedValue& x, const RelativeFixedValue& y) override
    {
        moves.push_back(x.toXmlString() + "," + y.toXmlString());
    }
    void systemPanelShown(bool on) override { systemPanel = on; }
    void globalKeyboardChanged(bool on) override { globalKeyboard = on; }

    QWidget widget;
    QSize size;
    std::vector<std::string> moves;
    std::optional<bool> systemPanel;
    std::optional<bool> globalKeyboard;
};

/// A backend and its window, not yet open.
struct Windowed : Stage {
    explicit Windowed(bool isVstPlugin = false) : gui(commands().sendCreateOrvGui(isVstPlugin)) { gui->initialize(); }
    ~Windowed() { gui->end(); }

    /// With the screens given, as if it had been closed with them.
    void open(const ScreenState& screens)
    {
        gui->create(host);
        for (const Screen screen : {Screen::system, Screen::help, Screen::computerInput, Screen::output})
            gui->showScreen(screen, screens.toBits()[static_cast<std::size_t>(screen)]);
        host.widget.show();
        told();
    }
    void told()
    {
        rest();
        QTest::qWait(20);
    }
    QAbstractButton& compactButton(const char* label)
    {
        for (auto* button : host.widget.findChildren<QAbstractButton*>())
            if (button->text() == QLatin1String(label)) return *button;
        throw std::runtime_error(label);
    }

    Surroundings host;
    std::unique_ptr<Gui::OrvGuiIF> gui;
};

const ScreenState NONE{.system = false, .help = false, .computerInput = false, .output = false};
const ScreenState SYSTEM{.system = true, .help = false, .computerInput = false, .output = false};
constexpr QSize COMPACT(104, 33);
}  // namespace

TEST(MainWindow, IsThreeButtonsWhileNoScreenShows)
{
    Windowed stage;
    stage.commands().postChangeMidiThru({OnOffToggle::State::off}, true);
    stage.open(NONE);
    EXPECT_EQ(stage.host.size, COMPACT);
    EXPECT_TRUE(stage.compactButton("R").isVisible());
    EXPECT_FALSE(stage.compactButton("T").isChecked());
    QTest::mouseClick(&stage.compactButton("T"), Qt::LeftButton);
    stage.told();
    EXPECT_TRUE(stage.orv->getRegistrySettings().getMidiThru());

    stage.gui->toggleScreen(Screen::system);
    EXPECT_FALSE(stage.compactButton("R").isVisible());
    EXPECT_GT(stage.host.size.width(), 700);
    EXPECT_EQ(stage.host.systemPanel, true);
    stage.gui->toggleScreen(Screen::system);
    EXPECT_EQ(stage.host.size, COMPACT);
    EXPECT_EQ(stage.host.systemPanel, false);
}

TEST(MainWindow, GrowsUpwardsWhereItsBottomEdgeIsDocked)
{
    Windowed stage;
    stage.open(SYSTEM);
    stage.host.moves.clear();
    const int before = stage.host.size.height();
    stage.gui->showScreen(Screen::help, true);
    EXPECT_TRUE(stage.host.moves.empty());
    stage.gui->showScreen(Screen::help, false);
    stage.commands().postSetDockToBottomEdge(true);
    stage.told();
    stage.gui->showScreen(Screen::help, true);
    const int grown = stage.host.size.height() - before;
    EXPECT_EQ(stage.host.moves, (std::vector<std::string>{"," + std::to_string(-grown)}));
}

TEST(MainWindow, ComesBackWhereItWasIfThatIsOnAScreen)
{
    const auto movesFrom = [](const WindowsLib::Rect& last, bool docked, bool isVstPlugin) {
        Stage stage;
        stage.commands().postSetLastWindowPosition(last);
        stage.commands().postSetDockToBottomEdge(docked);
        Surroundings host;
        const std::unique_ptr<Gui::OrvGuiIF> gui(stage.commands().sendCreateOrvGui(isVstPlugin));
        gui->initialize();
        gui->create(host);
        return host.moves;
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
    Windowed stage;
    stage.open(SYSTEM);
    stage.host.moves.clear();
    stage.commands().postExecuteFunction(R"(<MoveWindow x="+10" y=""/>)");
    stage.commands().postExecuteFunction("<ShowSystem type=\"off\"/>");
    stage.commands().postChangeGlobalKeyboard({OnOffToggle::State::on}, true);
    stage.told();
    EXPECT_EQ(stage.host.moves, std::vector<std::string>{"+10,"});
    EXPECT_FALSE(stage.gui->isScreenShowing(Screen::system));
    EXPECT_EQ(stage.host.globalKeyboard, true);
}

TEST(MainWindow, StandsBesideAnotherOfTheSameProcess)
{
    Windowed first;
    first.open(SYSTEM);
    auto second = std::make_unique<Windowed>();
    second->open(NONE);
    first.commands().postExecuteFunction("<ShowHelp type=\"on\"/>");
    second->commands().postChangeTempo({false, 77}, true);
    first.told();
    second->told();
    EXPECT_TRUE(first.gui->isScreenShowing(Screen::help));
    EXPECT_FALSE(second->gui->isScreenShowing(Screen::help));
    second.reset();
    first.gui->showScreen(Screen::help, false);
    EXPECT_FALSE(first.gui->create(first.host)) << "it is open";
}

TEST(MainWindow, LosesNothingElseWhenItIsLost)
{
    Windowed stage;
    stage.open(SYSTEM);
    const WindowHandle handle = stage.gui->getWindowHandle();
    stage.gui->destroy();
    EXPECT_FALSE(stage.gui->getWindowHandle());
    handle.post({.number = GuiMessage::BANK, .payload = Payload::of(Bank{})});  // freed, as the sanitizers see
    stage.press("C4");
    stage.playSlices();
    EXPECT_EQ(stage.played(), "C4 on");
    stage.gui->create(stage.host);
    stage.told();
    EXPECT_TRUE(stage.gui->isScreenShowing(Screen::system));
    EXPECT_EQ(stage.orv->getScreenState(), SYSTEM);
    EXPECT_FALSE(stage.gui->getGuiMessageManagerMaster().wantMessage(GuiMessage::SETTINGS - 2));
}
