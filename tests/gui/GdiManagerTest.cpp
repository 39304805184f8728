#include "gui/framework/GdiManager.h"

#include <gtest/gtest.h>

#include "tests/gui/GuiStage.h"

namespace
{
using Gui::GdiManager;
using Edge = GdiManager::Edge;
using FontRole = GdiManager::FontRole;

TEST(GdiManager, KeepsCharacterAndLineHeightsOfFontsApart)
{
    const GdiManager gdi;
    EXPECT_EQ(gdi.getFont(FontRole::font1).pixelSize(), 7);
    EXPECT_EQ(gdi.getFont(FontRole::large).pixelSize(), 72);
    EXPECT_LE(QFontMetrics(gdi.getFont(FontRole::font4)).height(), 14);
    EXPECT_LE(QFontMetrics(gdi.getFont(FontRole::small)).height(), 12);
    EXPECT_TRUE(gdi.getFont(FontRole::font7).bold());
    EXPECT_FALSE(gdi.getFont(FontRole::font9).bold());
}

TEST(GdiManager, MakesNoNewFontForACopy)
{
    const GdiManager gdi;
    const GdiManager copy(gdi);  // NOLINT: it is the copy that is tested
    EXPECT_EQ(&copy.getFont(FontRole::font1), &gdi.getFont(FontRole::font1));
}

TEST(Knob, IsDrawnOnceForEachLook)
{
    GdiManager gdi;
    const auto& knob = gdi.getKnob(GdiManager::GREEN, GdiManager::BLACK, Edge::plain, 10);
    EXPECT_EQ(&gdi.getKnob(GdiManager::GREEN, GdiManager::BLACK, Edge::plain, 10), &knob);
    EXPECT_NE(&gdi.getKnob(GdiManager::GREEN, GdiManager::BLACK, Edge::smooth, 10), &knob);
    EXPECT_NE(&gdi.getKnob(GdiManager::GREEN, GdiManager::BLACK, Edge::plain, 10, 2), &knob);
}

TEST(Knob, LeavesItsLastRowAndColumnToTheBackground)
{
    for (const Edge edge : {Edge::plain, Edge::smooth}) {
        const QImage disc = GdiManager::createKnob(GdiManager::GREEN, GdiManager::DARK_RED, edge, 10).toImage();
        ASSERT_EQ(disc.size(), QSize(11, 11));
        EXPECT_EQ(disc.pixelColor(5, 5), WindowsLib::toQColor(GdiManager::GREEN));
        for (int i = 0; i < 11; ++i) {
            EXPECT_EQ(disc.pixelColor(i, 10), WindowsLib::toQColor(GdiManager::DARK_RED)) << i;
            EXPECT_EQ(disc.pixelColor(10, i), WindowsLib::toQColor(GdiManager::DARK_RED)) << i;
        }
    }
}

TEST(Knob, IsSharpOnAFineScreen)
{
    const QPixmap disc = GdiManager::createKnob(GdiManager::GREEN, GdiManager::BLACK, Edge::smooth, 10, 2);
    EXPECT_EQ(disc.size(), QSize(22, 22));
    EXPECT_EQ(disc.deviceIndependentSize(), QSizeF(11, 11));
    EXPECT_TRUE(GuiStage::isSharp(disc.toImage()));
    const WindowsLib::Bitmap bitmap(disc);
    EXPECT_EQ(bitmap.getWidth(), 11);
    EXPECT_EQ(bitmap.getHeight(), 11);
}
}  // namespace
