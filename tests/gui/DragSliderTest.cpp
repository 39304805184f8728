#include "gui/framework/Fader.h"
#include "gui/framework/Knob.h"
#include "tests/gui/GuiStage.h"

using Values = std::vector<int>;

struct Faders : GuiStage, testing::Test {
    Faders()
    {
        fader.resize(fader.sizeHint());
        fader.showValue(64);
        fader.onChange = [this](int value) { reported.push_back(value); };
        fader.onRelease = [this] { ++released; };
        show(fader);
    }

    Gui::Fader fader{*this, Qt::Vertical, &window};
    Values reported;
    int released = 0;
};

TEST_F(Faders, FollowTheMouseByItsSensitivity)
{
    sensitivity = 2;
    QTest::mousePress(&fader, Qt::LeftButton, {}, {10, 50});
    EXPECT_FALSE(fader.cursor().pixmap().isNull()) << "the red cursor";
    for (const int y : {49, 40, 53}) mouseMove(fader, {10, y});
    QTest::mouseRelease(&fader, Qt::LeftButton, {}, {10, 53});
    EXPECT_EQ(reported, (Values{69, 63}));
    EXPECT_EQ(released, 1);
    EXPECT_EQ(fader.cursor().shape(), Qt::ArrowCursor);
    mouseMove(fader, {10, 0}, Qt::NoButton);
    EXPECT_EQ(fader.value(), 63);
}

TEST_F(Faders, StopAtTheirLimitComeBackFromWhereTheyWereTakenAndGoSidewaysWhenTheyLie)
{
    fader.setDragStep(10);
    QTest::mousePress(&fader, Qt::LeftButton, {}, {10, 50});
    for (const int y : {-1000, 44}) mouseMove(fader, {10, y});
    EXPECT_EQ(reported, (Values{127, 124}));

    Gui::Fader lying(*this, Qt::Horizontal, &window);
    lying.resize(lying.sizeHint());
    QTest::mousePress(&show(lying), Qt::LeftButton, {}, {10, 5});
    mouseMove(lying, {15, 0});
    EXPECT_EQ(lying.value(), 5);
}

TEST_F(Faders, ReportWheelAndKeysButNotASetValue)
{
    fader.showValue(10);
    wheel(fader, 1, Qt::ShiftModifier);
    QTest::keyClick(&fader, Qt::Key_Up);
    QTest::keyClick(&fader, Qt::Key_Z);
    EXPECT_EQ(reported, (Values{11, 12}));
    EXPECT_EQ(window.played, Values{Qt::Key_Z});
    expectAccessible(fader, QAccessible::Slider);
    QAccessible::queryAccessibleInterface(&fader)->valueInterface()->setCurrentValue(100);
    EXPECT_EQ(reported.back(), 100) << "a screen reader turns it";
}

TEST_F(Faders, BelongToTheHandThatHoldsThemUntilTheyAreHiddenOrDisabled)
{
    QTest::mousePress(&fader, Qt::LeftButton, {}, {10, 50});
    mouseMove(fader, {10, 40});
    fader.showValue(3);
    EXPECT_EQ(fader.value(), 74);
    QTest::mouseRelease(&fader, Qt::LeftButton, {}, {10, 40});
    EXPECT_EQ(fader.value(), 3) << "the last one shown, when it is let go";
    EXPECT_EQ(reported, Values{74});
    QTest::mousePress(&fader, Qt::LeftButton, {}, {10, 50});
    fader.hide();
    EXPECT_EQ(released, 2);
    fader.show();
    QTest::mousePress(&fader, Qt::LeftButton, {}, {10, 50});
    fader.setEnabled(false);
    EXPECT_EQ(released, 3);
}

TEST_F(Faders, AsKnobsFollowTheMouseWithoutAButtonAfterAMiddleClick)
{
    Gui::Knob knob(*this, &window);
    knob.resize(knob.sizeHint());
    expectAccessible(knob, QAccessible::Slider);
    QTest::mouseClick(&show(knob), Qt::MiddleButton, {}, {5, 20});
    mouseMove(knob, {5, 10}, Qt::NoButton);
    EXPECT_EQ(knob.value(), 10);
    QTest::mouseClick(&knob, Qt::LeftButton, {}, {5, 10});
    mouseMove(knob, {5, 0}, Qt::NoButton);
    EXPECT_EQ(knob.value(), 10);
}

TEST_F(Faders, ShowTheirValueAndAreAsSharpAsTheScreen)
{
    const double scale = fader.devicePixelRatioF();
    const auto rowsOfDisc = [&](int value) {
        fader.showValue(value);
        const QImage image = picture(fader);
        Values rows;
        for (int y = 0; y < image.height(); ++y)
            if (image.pixelColor(image.width() / 2 - 1, y) == colour(Role::selectedButton)) rows.push_back(y);
        return rows;
    };
    const auto low = rowsOfDisc(0);
    const auto high = rowsOfDisc(127);
    ASSERT_TRUE(!low.empty() && !high.empty());
    EXPECT_LT(high.back(), 16 * scale);
    EXPECT_GT(low.front(), 84 * scale);
    EXPECT_TRUE(scale < 2 || isSharp(picture(fader)));
}
