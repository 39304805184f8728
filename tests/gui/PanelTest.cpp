#include "gui/framework/Panel.h"

#include "gui/framework/GdiManager.h"

#include <gtest/gtest.h>

using Gui::Panel;

struct Panels : testing::Test {
    struct Sized : Panel {
        Sized(Panel& parent, int width, int height) : Panel(&parent) { setPanelSize({width, height}); }
    };
    Gui::GdiManager gdi;
    Panel master{gdi};
    Sized first{master, 100, 20};
    Sized second{master, 120, 30};
    Sized third{master, 80, 40};
};

TEST_F(Panels, AreStackedWithGapsBetweenThoseThatAreShown)
{
    for (int time = 0; time < 2; ++time) {
        first.show(true);
        EXPECT_EQ(master.height(), 20) << "no gap with one";
    }
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
    second.show(false);
    third.show(false);
    EXPECT_EQ(master.height(), 0);
    EXPECT_FALSE(master.hasShownChild());
}

TEST_F(Panels, GrowWithAPanelInsideOnceThatIsShown)
{
    Panel output(&master);
    Sized keyboard(output, 300, 50);
    Sized layers(output, 300, 40);
    Sized below(master, 10, 10);
    keyboard.show(true);
    EXPECT_EQ(master.height(), 0);
    output.show(true);
    EXPECT_EQ(master.height(), 50);
    below.show(true);
    EXPECT_EQ(below.y(), 55);

    layers.show(true);
    EXPECT_EQ(output.height(), 95);
    EXPECT_EQ(below.y(), 100);
    EXPECT_EQ(master.height(), 110);

    keyboard.setPanelSize({300, 60});
    EXPECT_EQ(layers.y(), 65);
    EXPECT_EQ(master.height(), 120);
    gdi.setScale(1.25);
    master.rescale();
    EXPECT_EQ(layers.y(), 75 + 6);
    EXPECT_EQ(master.size(), QSize(375, 75 + 6 + 50 + 6 + 13)) << "each length is rounded";
}
