#include "host/window/Frame.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <vector>

struct Frames : testing::Test {
    Frames() { frame.show(); }
    void press(const QString& name)
    {
        for (auto* button : frame.findChildren<QAbstractButton*>())
            if (button->accessibleName() == name) button->click();
    }
    bool is(Qt::WindowType flag) const { return frame.windowFlags().testFlag(flag); }

    int asked = 0;
    Host::Frame frame{[this] { ++asked; }};
};

TEST_F(Frames, AreAsLargeAsWhatTheyShowAndTheirBorder)
{
    frame.windowResized(300, 200);
    EXPECT_EQ(frame.getWidget()->size(), QSize(300, 200));
    EXPECT_TRUE(is(Qt::FramelessWindowHint));
    const QSize withBorder = frame.size();
    EXPECT_GT(withBorder.height(), 220);

    frame.useSkinBorderChanged(false);
    EXPECT_EQ(frame.size(), QSize(300, 200)) << "the desktop has its own";
    EXPECT_FALSE(is(Qt::FramelessWindowHint));
    EXPECT_EQ(frame.getWidget()->pos(), QPoint(0, 0));
    frame.windowResized(400, 100);
    EXPECT_EQ(frame.size(), QSize(400, 100));

    frame.useSkinBorderChanged(true);
    EXPECT_EQ(frame.size(), withBorder + QSize(100, -100));
    EXPECT_TRUE(frame.isVisible());
}

TEST_F(Frames, AreScaledAndResizedByTheirEdgesAndNeverWiderThanTheDesktop)
{
    const QSize room = frame.screen()->availableGeometry().size();
    std::vector<int> scales;
    frame.onScale = [&](int percent) { scales.push_back(percent); };
    EXPECT_EQ(frame.fitScale(150, 200, 100), 150);
    frame.windowResized(300, 150);
    EXPECT_LE(frame.fitScale(400, 1000, 500) * 1000, 100 * room.width()) << "what is beside it could not be reached";
    EXPECT_EQ(frame.fitScale(150, 200, 100), 150);

    const auto drag = [this](QPoint from, QPoint by) {
        const auto send = [this](QEvent::Type type, QPoint place, QPoint global) {
            const auto buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
            QMouseEvent event(type, place, global, Qt::LeftButton, buttons, Qt::NoModifier);
            QApplication::sendEvent(&frame, &event);
        };
        const QPoint global = frame.mapToGlobal(from);
        send(QEvent::MouseButtonPress, from, global);
        send(QEvent::MouseMove, from + by, global + by);
        send(QEvent::MouseButtonRelease, from + by, global + by);
    };
    drag({frame.width() - 1, 50}, {100, 0});
    EXPECT_EQ(scales, std::vector<int>{200});
    const int height = frame.height();
    drag({50, height - 1}, {0, -40});
    EXPECT_EQ(frame.height(), height - 40);
    frame.windowResized(300, 2 * room.height());
    EXPECT_EQ(frame.height(), height - 40) << "the user chose it";
    drag({50, frame.height() - 1}, {0, 2 * room.height()});
    EXPECT_EQ(frame.height(), room.height());

    frame.toggleMaximised();
    EXPECT_EQ(frame.fitScale(150, 200, 10), std::min(400, 100 * (room.width() - 8) / 200)) << "the largest that fits";
    EXPECT_EQ(frame.fitScale(150, 200, 5000), 100) << "and no smaller than that";
    frame.toggleMaximised();
    EXPECT_EQ(frame.fitScale(150, 200, 100), 150);
    int toggled = 0;
    frame.onToggleCompact = [&] { ++toggled; };
    press("Small window");
    EXPECT_EQ(toggled, 1);
}

TEST_F(Frames, MoveAsTheyAreAskedAndStayAlongABlankAxis)
{
    const auto to = [](int pixels) { return RelativeFixedValue{.relative = false, .value = pixels}; };
    const auto by = [](int pixels) { return RelativeFixedValue{.relative = true, .value = pixels}; };
    frame.moveWindow(to(100), to(50));
    EXPECT_EQ(frame.pos(), QPoint(100, 50));
    frame.moveWindow(by(-30), by(0));
    EXPECT_EQ(frame.pos(), QPoint(70, 50));
    frame.moveWindow(by(0), to(7));
    EXPECT_EQ(frame.pos(), QPoint(70, 7));
}

TEST_F(Frames, StayOnTopWhileTheyAreAskedToAskBeforeTheyCloseAndComeBackWhenTheyWereMinimised)
{
    const WId window = frame.winId();
    for (const bool on : {true, true, false}) {
        frame.alwaysOnTopChanged(on);
        EXPECT_EQ(is(Qt::WindowStaysOnTopHint), on);
    }
    EXPECT_EQ(frame.winId(), window) << "a new one would lose the focus, and the keys that are down";
    EXPECT_TRUE(frame.isVisible());

    frame.close();
    EXPECT_EQ(asked, 1);
    press("Close");
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(frame.isVisible());
    press("Minimise");
    EXPECT_TRUE(frame.isMinimized());
    frame.raiseAboveAll();
    EXPECT_FALSE(frame.isMinimized());
    QApplication::processEvents();
    EXPECT_TRUE(frame.isVisible());
}
