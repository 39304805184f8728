#include <gtest/gtest.h>

#include "gui/framework/Fader.h"
#include "gui/framework/Knob.h"
#include "tests/gui/GuiStage.h"

namespace
{
using Gui::Fader;
using Gui::Knob;
using Role = Gui::GdiManager::Role;

struct FaderStage : GuiStage {
    explicit FaderStage(Qt::Orientation orientation = Qt::Vertical) : fader(*this, orientation, &window)
    {
        fader.resize(fader.sizeHint());
        fader.showValue(64);
        fader.onChange = [this](int value) { reported.push_back(value); };
        fader.onRelease = [this] { ++released; };
        show(fader);
    }

    using Values = std::vector<int>;
    Fader fader;
    Values reported;
    int released = 0;
};

TEST(Fader, FollowsTheMouseByItsSensitivity)
{
    FaderStage stage;
    stage.sensitivity = 2;
    GuiStage::press(stage.fader, {10, 50});
    EXPECT_EQ(stage.fader.cursor().pixmap().isNull(), false) << "the red cursor";
    GuiStage::move(stage.fader, {10, 49});
    GuiStage::move(stage.fader, {10, 40});
    GuiStage::move(stage.fader, {10, 53});
    GuiStage::release(stage.fader, {10, 53});
    EXPECT_EQ(stage.reported, (FaderStage::Values{69, 63}));
    EXPECT_EQ(stage.released, 1);
    EXPECT_EQ(stage.fader.cursor().shape(), Qt::ArrowCursor);
    GuiStage::move(stage.fader, {10, 0}, Qt::NoButton);
    EXPECT_EQ(stage.fader.value(), 63);
}

TEST(Fader, StopsAtItsLimitAndComesBackFromWhereItWasTaken)
{
    FaderStage stage;
    stage.fader.setDragStep(10);
    GuiStage::press(stage.fader, {10, 50});
    GuiStage::move(stage.fader, {10, -1000});
    EXPECT_EQ(stage.fader.value(), 127);
    GuiStage::move(stage.fader, {10, 44});
    EXPECT_EQ(stage.fader.value(), 124);
}

TEST(Fader, GoesSidewaysWhenItLies)
{
    FaderStage stage(Qt::Horizontal);
    GuiStage::press(stage.fader, {10, 5});
    GuiStage::move(stage.fader, {15, 0});
    EXPECT_EQ(stage.reported, FaderStage::Values{69});
}

TEST(Fader, ReportsWheelAndKeysButNotASetValue)
{
    FaderStage stage;
    stage.fader.showValue(10);
    GuiStage::wheel(stage.fader, 1, Qt::ShiftModifier);
    QTest::keyClick(&stage.fader, Qt::Key_Up);
    QTest::keyClick(&stage.fader, Qt::Key_Z);
    EXPECT_EQ(stage.reported, (FaderStage::Values{11, 12}));
    EXPECT_EQ(stage.window.played, std::vector<int>{Qt::Key_Z});
}

TEST(Fader, BelongsToTheHandThatHoldsIt)
{
    FaderStage stage;
    GuiStage::press(stage.fader, {10, 50});
    GuiStage::move(stage.fader, {10, 40});
    stage.fader.showValue(3);
    EXPECT_EQ(stage.fader.value(), 74);
    GuiStage::release(stage.fader, {10, 40});
    EXPECT_EQ(stage.fader.value(), 3) << "the last one shown, when it is let go";
    EXPECT_EQ(stage.reported, FaderStage::Values{74});
}

TEST(Fader, IsLetGoWhenItIsHiddenOrDisabled)
{
    FaderStage stage;
    GuiStage::press(stage.fader, {10, 50});
    stage.fader.hide();
    EXPECT_EQ(stage.released, 1);
    stage.fader.show();
    GuiStage::press(stage.fader, {10, 50});
    stage.fader.setEnabled(false);
    EXPECT_EQ(stage.released, 2);
}

TEST(Knob, FollowsTheMouseWithoutAButtonAfterAMiddleClick)
{
    GuiStage stage;
    Knob knob(stage, &stage.window);
    knob.resize(knob.sizeHint());
    stage.show(knob);
    GuiStage::press(knob, {5, 20}, Qt::MiddleButton);
    GuiStage::release(knob, {5, 20}, Qt::MiddleButton);
    GuiStage::move(knob, {5, 10}, Qt::NoButton);
    EXPECT_EQ(knob.value(), 10);
    GuiStage::press(knob, {5, 10});
    GuiStage::release(knob, {5, 10});
    GuiStage::move(knob, {5, 0}, Qt::NoButton);
    EXPECT_EQ(knob.value(), 10);
}

TEST(Fader, ShowsItsValueAndIsAsSharpAsTheScreen)
{
    FaderStage stage;
    const auto rowsOfDisc = [&] {
        const QImage picture = GuiStage::picture(stage.fader);
        std::vector<int> rows;
        for (int y = 0; y < picture.height(); ++y)
            if (picture.pixelColor(picture.width() / 2 - 1, y) == stage.colour(Role::selectedButton)) rows.push_back(y);
        return rows;
    };
    const double scale = stage.fader.devicePixelRatioF();
    stage.fader.showValue(0);
    const auto low = rowsOfDisc();
    stage.fader.showValue(127);
    const auto high = rowsOfDisc();
    ASSERT_FALSE(low.empty());
    ASSERT_FALSE(high.empty());
    EXPECT_LT(high.back(), 16 * scale);
    EXPECT_GT(low.front(), 84 * scale);

    EXPECT_TRUE(scale < 2 || GuiStage::isSharp(GuiStage::picture(stage.fader)));
}
}  // namespace
