#include "host/window/DesktopWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>

#include "tests/stage/LiveStage.h"

namespace Host
{
namespace
{
using Backend::Screen;

void processEventsUntil(const std::function<bool()>& condition)
{
    QElapsedTimer patience;
    for (patience.start(); !condition() && patience.elapsed() < 20000;) QApplication::processEvents();
    ASSERT_TRUE(condition());
}

/// Plays without a rest: keys, notes and what the window is told of.
class Performer
{
public:
    explicit Performer(LiveStage& liveStage) : stage(liveStage), thread([this] { play(); }) {}
    ~Performer()
    {
        stopping = true;
        thread.join();
    }

private:
    void play()
    {
        using namespace Backend::MidiEngine;
        auto& commands = stage.commands();
        const Key key = Key::fromXmlString("Q");
        for (int step = 0; !stopping; ++step) {
            const int note = 40 + step % 40;
            commands.postKeyDown(key, false);
            commands.postProcessMidiInputEvent(
                {MessageType::noteOn, note, 100, 0, OrvMidiMessage::DEFAULT_OUTPUT, 0, 0, -1});
            commands.postExecuteFunction(step % 2 == 0 ? "<ShowDisplay/>" : "<MoveWindow x='+1'/>");
            std::this_thread::sleep_for(std::chrono::microseconds(500));
            commands.postProcessMidiInputEvent(
                {MessageType::noteOff, note, 64, 0, OrvMidiMessage::DEFAULT_OUTPUT, 0, 0, -1});
            commands.postKeyUp(key);
        }
    }

    LiveStage& stage;
    std::atomic<bool> stopping{false};
    std::thread thread;
};
}  // namespace

TEST(DesktopWindow, OpensAndClosesAHundredTimesWhileItPlays)
{
    constexpr int TIMES = 100;
    LiveStage stage;
    {
        const Performer performer(stage);
        for (int time = 0; time < TIMES; ++time) {
            DesktopWindow window(*stage.orv, [] {});
            const int before = stage.player.events;
            processEventsUntil([&] { return stage.player.events > before; });
            window.getGui().showScreen(Screen::help, time % 2 == 0);
            if (time % 3 == 0) {  // once more in the same frame
                window.getGui().destroy();
                EXPECT_TRUE(window.getGui().create(window.getFrame()));
                QApplication::processEvents();
            }
        }
    }
    stage.rest();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));  // the slices that play the rest
    stage.rest();
    EXPECT_FALSE(stage.orv->getGuiWindowHandle());
    EXPECT_GT(stage.player.events, 2 * TIMES);
    EXPECT_TRUE(stage.player.isSilent());
}

TEST(DesktopWindow, ShowsTheScreensOfTheLastTime)
{
    LiveStage stage;
    {
        DesktopWindow window(*stage.orv, [] {});
        EXPECT_TRUE(window.getGui().isScreenShowing(Screen::help));
        window.getGui().showScreen(Screen::help, false);
        window.getGui().showScreen(Screen::display, true);
    }
    DesktopWindow window(*stage.orv, [] {});
    EXPECT_FALSE(window.getGui().isScreenShowing(Screen::help));
    EXPECT_TRUE(window.getGui().isScreenShowing(Screen::display));
}

TEST(DesktopWindow, FollowsTheSettingsOfItsFrame)
{
    LiveStage stage;
    stage.commands().postSetAlwaysOnTop(true);
    stage.rest();
    DesktopWindow window(*stage.orv, [] {});
    EXPECT_TRUE(window.getFrame().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window.getFrame().windowFlags().testFlag(Qt::FramelessWindowHint));
    stage.commands().postSetUseSkinBorder(false);
    processEventsUntil([&] { return !window.getFrame().windowFlags().testFlag(Qt::FramelessWindowHint); });
    stage.commands().postSetAlwaysOnTop(false);
    processEventsUntil([&] { return !window.getFrame().windowFlags().testFlag(Qt::WindowStaysOnTopHint); });
}
}  // namespace Host
