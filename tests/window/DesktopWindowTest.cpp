#include "host/window/DesktopWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QScreen>

#include "tests/stage/LiveStage.h"
#include "tests/stage/TestEvent.h"

using Backend::Screen;
using Host::DesktopWindow;

struct DesktopWindows : testing::Test {
    static void processEventsUntil(const std::function<bool()>& condition)
    {
        QElapsedTimer patience;
        for (patience.start(); !condition() && patience.elapsed() < 20000;) QApplication::processEvents();
        ASSERT_TRUE(condition());
    }
    std::unique_ptr<DesktopWindow> openWindow()
    {
        return std::make_unique<DesktopWindow>(*stage.orv, [] {});
    }

    LiveStage stage;
};

TEST_F(DesktopWindows, OpenAndCloseAgainAndAgainWhileTheEnginePlays)
{
    constexpr int TIMES = 30;
    // Plays without a rest: keys, notes and what the window is notified of.
    std::jthread performer([this](const std::stop_token& stop) {
        auto& commands = stage.commands();
        const Key key = Key::fromXmlString("Q");
        for (int step = 0; !stop.stop_requested(); ++step) {
            const int note = 40 + step % 40;
            commands.postKeyDown(key, false);
            commands.postProcessMidiInputEvent(noteOn(note).channel(0).zone(0).input(0));
            commands.postExecuteFunction(step % 2 == 0 ? "<ShowDisplay/>" : "<MoveWindow x='+1'/>");
            std::this_thread::sleep_for(std::chrono::milliseconds(1));  // Windows cannot sleep less
            commands.postProcessMidiInputEvent(noteOff(note).channel(0).zone(0).input(0));
            commands.postKeyUp(key);
        }
    });
    for (int time = 0; time < TIMES; ++time) {
        const auto window = openWindow();
        EXPECT_EQ(window->getGui().isScreenShowing(Screen::help), time % 2 == 1 || time == 0) << "as the last time";
        const int before = stage.player.events;
        processEventsUntil([&] { return stage.player.events > before; });
        window->getGui().showScreen(Screen::help, time % 2 == 0);
        window->getGui().showScreen(Screen::display, true);  // prints what is played
        if (time % 3 == 0) {                                 // once more in the same frame
            window->getGui().destroy();
            EXPECT_TRUE(window->getGui().create(window->getFrame()));
            QApplication::processEvents();
        }
    }
    performer = {};
    stage.rest();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));  // the slices that play the rest
    stage.rest();
    EXPECT_FALSE(stage.orv->getGuiWindowHandle());
    EXPECT_GT(stage.player.events, 2 * TIMES);
    EXPECT_TRUE(stage.player.isSilent());
}

TEST_F(DesktopWindows, FollowTheSettingsOfTheirFrame)
{
    stage.commands().postSetAlwaysOnTop(true);
    stage.rest();
    const auto window = openWindow();
    const auto is = [&window](Qt::WindowType flag) { return window->getFrame().windowFlags().testFlag(flag); };
    EXPECT_TRUE(is(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(is(Qt::FramelessWindowHint));
    stage.commands().postSetUseSkinBorder(false);
    processEventsUntil([&] { return !is(Qt::FramelessWindowHint); });
    stage.commands().postSetAlwaysOnTop(false);
    processEventsUntil([&] { return !is(Qt::WindowStaysOnTopHint); });
}

TEST_F(DesktopWindows, OpenAsTheyWereLeftAndWhollyOnTheDesktop)
{
    auto window = openWindow();
    window->getFrame().heightChosen(300);
    window->getFrame().onHeight(300);
    const QRect left = window->getFrame().geometry();
    window.reset();
    window = openWindow();
    EXPECT_EQ(window->getFrame().geometry(), left);
    const QRect room = window->getFrame().screen()->availableGeometry();
    window->getFrame().move(room.bottomRight() - QPoint(50, 50));
    window.reset();
    window = openWindow();
    EXPECT_EQ(window->getFrame().frameGeometry().bottom(), room.bottom());
}
