#include "host/window/Frame.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>

namespace Host
{
namespace
{
RelativeFixedValue to(int pixels) { return {.relative = false, .value = pixels}; }
RelativeFixedValue by(int pixels) { return {.relative = true, .value = pixels}; }

QAbstractButton* buttonOf(const Frame& frame, const QString& name)
{
    for (auto* button : frame.findChildren<QAbstractButton*>())
        if (button->accessibleName() == name) return button;
    return nullptr;
}
}  // namespace

TEST(Frame, IsAsLargeAsWhatItShowsAndItsBorder)
{
    Frame frame([] {});
    frame.windowResized(300, 200);
    frame.show();
    EXPECT_EQ(frame.getWidget()->size(), QSize(300, 200));
    EXPECT_TRUE(frame.windowFlags().testFlag(Qt::FramelessWindowHint));
    const QSize withBorder = frame.size();
    EXPECT_GT(withBorder.height(), 220);

    frame.useSkinBorderChanged(false);
    EXPECT_EQ(frame.size(), QSize(300, 200)) << "the desktop has its own";
    EXPECT_FALSE(frame.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(frame.getWidget()->pos(), QPoint(0, 0));
    frame.windowResized(400, 100);
    EXPECT_EQ(frame.size(), QSize(400, 100));

    frame.useSkinBorderChanged(true);
    EXPECT_EQ(frame.size(), withBorder + QSize(100, -100));
    EXPECT_TRUE(frame.isVisible());
}

TEST(Frame, MovesWhereItIsToldAndStaysAlongABlankAxis)
{
    Frame frame([] {});
    frame.moveWindow(to(100), to(50));
    frame.show();
    EXPECT_EQ(frame.pos(), QPoint(100, 50));
    frame.moveWindow(by(-30), by(0));
    EXPECT_EQ(frame.pos(), QPoint(70, 50));
    frame.moveWindow(by(0), to(7));
    EXPECT_EQ(frame.pos(), QPoint(70, 7));
}

TEST(Frame, StaysOnTopWhileItIsTold)
{
    Frame frame([] {});
    frame.show();
    const WId window = frame.winId();
    for (const bool on : {true, true, false}) {
        frame.alwaysOnTopChanged(on);
        EXPECT_EQ(frame.windowFlags().testFlag(Qt::WindowStaysOnTopHint), on);
    }
    EXPECT_EQ(frame.winId(), window) << "a new one would lose the focus, and the keys that are down";
    EXPECT_TRUE(frame.isVisible());
}

TEST(Frame, AsksBeforeItCloses)
{
    int asked = 0;
    Frame frame([&asked] { ++asked; });
    frame.show();
    frame.close();
    EXPECT_EQ(asked, 1);
    buttonOf(frame, "Close")->click();
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(frame.isVisible());
}

TEST(Frame, ComesBackToTheFrontWhenItWasMinimised)
{
    Frame frame([] {});
    frame.show();
    buttonOf(frame, "Minimise")->click();
    EXPECT_TRUE(frame.isMinimized());
    frame.raiseAboveAll();
    EXPECT_FALSE(frame.isMinimized());
    QApplication::processEvents();
    EXPECT_TRUE(frame.isVisible());
}
}  // namespace Host
