#include "gui/framework/Panel.h"

#include <gtest/gtest.h>

namespace
{
using Gui::Panel;

struct Screen : Panel {
    Screen(Panel* parent, int width, int height) : Panel(parent) { setPanelSize({width, height}); }
};

TEST(Panel, StacksTheShownOnesWithGapsBetweenThem)
{
    Panel master;
    Screen first(&master, 100, 20);
    Screen second(&master, 120, 30);
    Screen third(&master, 80, 40);

    first.show(true);
    third.show(true);
    EXPECT_EQ(master.size(), QSize(100, 65));
    EXPECT_EQ(third.pos(), QPoint(0, 25));

    second.show(true);
    EXPECT_EQ(master.size(), QSize(120, 100));
    EXPECT_EQ(second.pos(), QPoint(0, 25));
    EXPECT_EQ(third.pos(), QPoint(0, 60));

    first.show(false);
    EXPECT_EQ(master.height(), 75);
    EXPECT_EQ(second.pos(), QPoint(0, 0));
}

TEST(Panel, RemovesNoGapWithItsOnlyShownChild)
{
    Panel master;
    Screen only(&master, 100, 20);
    const Screen hidden(&master, 100, 30);
    only.show(true);
    EXPECT_EQ(master.height(), 20);
    only.show(true);
    EXPECT_EQ(master.height(), 20) << "shown twice";
    only.show(false);
    EXPECT_EQ(master.height(), 0);
    EXPECT_FALSE(master.hasShownChild());
}

TEST(Panel, GrowsWithAPanelInsideAPanel)
{
    Panel master;
    Panel output(&master);
    Screen keyboard(&output, 300, 50);
    Screen layers(&output, 300, 40);
    Screen below(&master, 10, 10);
    output.show(true);
    keyboard.show(true);
    below.show(true);
    EXPECT_EQ(below.y(), 55);

    layers.show(true);
    EXPECT_EQ(output.height(), 95);
    EXPECT_EQ(below.y(), 100);
    EXPECT_EQ(master.height(), 110);

    keyboard.setPanelSize({300, 60});
    EXPECT_EQ(layers.y(), 65);
    EXPECT_EQ(master.height(), 120);
}

TEST(Panel, KeepsAHiddenChildOutOfTheColumnUntilItIsShown)
{
    Panel master;
    Panel output(&master);
    Screen layers(&output, 300, 40);
    layers.show(true);
    EXPECT_EQ(master.height(), 0);
    output.show(true);
    EXPECT_EQ(master.height(), 40);
}
}  // namespace
