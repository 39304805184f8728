#include <cmath>

#include "gui/framework/Look.h"
#include "tests/gui/GuiStage.h"

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
    const GdiManager copy(gdi);  // NOLINT: it is the copy that is tested
    EXPECT_EQ(&copy.getFont(FontRole::font1), &gdi.getFont(FontRole::font1)) << "no new font for a copy";
}

TEST(GdiManager, DrawsAKnobOnceForEachLookAndLeavesItsLastRowAndColumnToTheBackground)
{
    constexpr auto GREEN = GdiManager::GREEN, BLACK = GdiManager::BLACK, RED = GdiManager::DARK_RED;
    GdiManager gdi;
    const auto& knob = gdi.getKnob(GREEN, BLACK, Edge::plain, 10);
    EXPECT_EQ(&gdi.getKnob(GREEN, BLACK, Edge::plain, 10), &knob);
    EXPECT_NE(&gdi.getKnob(GREEN, BLACK, Edge::smooth, 10), &knob);
    EXPECT_NE(&gdi.getKnob(GREEN, BLACK, Edge::plain, 10, 2), &knob);

    const QColor ground = WindowsLib::toQColor(RED);
    for (const Edge edge : {Edge::plain, Edge::smooth}) {
        const QImage disc = GdiManager::createKnob(GREEN, RED, edge, 10).toImage();
        ASSERT_EQ(disc.size(), QSize(11, 11));
        EXPECT_EQ(disc.pixelColor(5, 5), WindowsLib::toQColor(GREEN));
        for (int i = 0; i < 11; ++i)
            EXPECT_TRUE(disc.pixelColor(i, 10) == ground && disc.pixelColor(10, i) == ground) << i;
    }

    const QPixmap fine = GdiManager::createKnob(GREEN, BLACK, Edge::smooth, 10, 2);
    EXPECT_EQ(fine.size(), QSize(22, 22));
    EXPECT_TRUE(GuiStage::isSharp(fine.toImage()));
    const WindowsLib::Bitmap bitmap(fine);
    EXPECT_EQ(bitmap.getWidth(), 11);
    EXPECT_EQ(bitmap.getHeight(), 11);
}

TEST(GdiManager, HaveSkinsThatCanBeRead)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
    };
    const auto contrast = [&](const QColor& one, const QColor& other) {
        const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
        return (lighter + 0.05) / (darker + 0.05);
    };
    using enum GdiManager::Role;
    for (const auto& skin : GdiManager::SKINS) {
        const GdiManager manager(skin);
        const auto colour = [&](GdiManager::Role role) { return manager.getColour(role); };
        for (const auto ink : {text, label, frame, selectedButton, unselectedButton})
            EXPECT_GE(contrast(colour(ink), colour(background)), 4.5) << skin.name;
        EXPECT_GE(contrast(colour(text), colour(selectedCell)), 4.5) << skin.name;
        EXPECT_GE(contrast(colour(label), colour(selectedCell)), 4.5) << skin.name;
        EXPECT_GE(contrast(colour(labelDisabled), colour(background)), 3) << skin.name;
        EXPECT_GE(contrast(colour(disabledButton), colour(background)), 3) << skin.name;
        EXPECT_GE(contrast(Qt::black, colour(disabledButton)), 3) << skin.name;
        for (const auto fill : {selectedButton, unselectedButton, frame})
            EXPECT_GE(contrast(Qt::black, colour(fill)), 4.5) << skin.name << ": as of RESET";
        for (const auto fill : {unusedButton, greenPen, text})
            EXPECT_GE(contrast(Gui::Look::inkOn(colour(fill)), colour(fill)), 4.5) << skin.name;
    }
}
