#include "gui/framework/TimeIntervalCtl.h"

#include "gui/framework/TemporaryEdit.h"
#include "tests/gui/GuiStage.h"

using Kind = TimeIntervalType::Kind;

struct TimeIntervals : GuiStage, testing::Test, Gui::TimeIntervalCtl::Listener {
    explicit TimeIntervals(Kind kind = Kind::noteInterval)
    {
        ctl.setKind({kind});
        ctl.resize(120, 20);
        ctl.move(100, 100);
        ctl.setListener(this);
        show(ctl);
    }

    void valueChanged(Gui::TimeIntervalCtl&, std::int32_t ppq) override { reported += std::to_string(ppq) + " "; }
    void kindChanged(Gui::TimeIntervalCtl&, TimeIntervalType kind, std::int32_t ppq) override
    {
        reported += (kind.kind == Kind::ppq ? "PPQ " : "NOTE ") + std::to_string(ppq) + " ";
    }

    static constexpr QPoint up(int pixels) { return {80, 10 - pixels}; }
    void click() { QTest::mouseClick(&ctl, Qt::LeftButton, {}, up(0)); }
    static QLineEdit* edit() { return dynamic_cast<Gui::TemporaryEdit*>(QApplication::focusWidget()); }

    Gui::TimeIntervalCtl ctl{*this, 40, 30720, &window};
    std::string reported;
};

struct TimeIntervalsInPulses : TimeIntervals {
    TimeIntervalsInPulses() : TimeIntervals(Kind::ppq) {}
};

TEST_F(TimeIntervals, ShowANoteLengthOrANumber)
{
    expectAccessible(ctl, QAccessible::SpinBox, "1/4");
    ctl.setValue(481);
    EXPECT_EQ(ctl.getText(), "481");
    Hands::click(ctl.getLabel());
    ctl.setValue(480);
    EXPECT_EQ(ctl.getText(), "480");
    EXPECT_EQ(ctl.getLabel().text(), "PPQ");
    EXPECT_EQ(reported, "PPQ 481 ");
}

TEST_F(TimeIntervals, AreDraggedByNamedLengths)
{
    sensitivity = 10;
    QTest::mousePress(&ctl, Qt::LeftButton, {}, up(0));
    for (const int pixels : {9, 25, -10, 0}) mouseMove(ctl, up(pixels));
    QTest::mouseRelease(&ctl, Qt::LeftButton, {}, up(0));
    EXPECT_EQ(reported, "720 360 480 ");
    EXPECT_EQ(openMenu(), nullptr) << "a drag that comes back is no click";
}

TEST_F(TimeIntervalsInPulses, StopAtTheirLimitAndComeBackFromWhereTheyWereTaken)
{
    ctl.setValue(50);
    for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
        QTest::mousePress(&ctl, button, {}, up(0));
        EXPECT_EQ(ctl.cursor().pixmap().isNull(), button == Qt::LeftButton);
        mouseMove(ctl, up(-500), button);
        EXPECT_EQ(ctl.getValue(), 40);
        mouseMove(ctl, up(-9), button);
        EXPECT_EQ(ctl.getValue(), 41);
        mouseMove(ctl, up(0), button);
        QTest::mouseRelease(&ctl, button, {}, up(0));
        EXPECT_EQ(ctl.cursor().shape(), Qt::ArrowCursor);
    }
    ctl.setLimits(60, 100);
    EXPECT_EQ(ctl.getValue(), 60);
}

TEST_F(TimeIntervals, StepFromALengthWithoutANameToItsNeighboursAndOfferThoseThatTheyAllow)
{
    for (const auto& [from, notches, to] : std::vector<std::tuple<int, int, int>>{
             {200, 1, 240}, {200, -1, 180}, {240, 1, 320}, {30720, 1, 30720}, {41, -1, 40}}) {
        ctl.setValue(from);
        wheel(ctl, notches);
        EXPECT_EQ(ctl.getValue(), to) << from;
    }
    ctl.setValue(480);
    reported.clear();
    ctl.setLimits(240, 960);
    click();
    ASSERT_NE(openMenu(), nullptr);
    EXPECT_EQ(openMenu()->actions().size(), 7);
    choose("1/8 Dotted");
    EXPECT_EQ(reported, "360 ");
}

TEST_F(TimeIntervalsInPulses, TakeATypedNumberBetweenTheirLimits)
{
    QTest::keyClick(&ctl, Qt::Key_Up);
    EXPECT_EQ(reported, "481 ");

    QLineEdit before(&window);
    show(before);
    using Row = std::tuple<const char*, Qt::Key, int>;
    for (const auto& [typed, key, value] : {Row{" 960 ", Qt::Key_Return, 960},
                                            {"5", Qt::Key_Enter, 40},
                                            {"99999999999", Qt::Key_Return, 30720},
                                            {"soon", Qt::Key_Return, 480},
                                            {"", Qt::Key_Return, 480},
                                            {"960", Qt::Key_Escape, 480},
                                            {"960", Qt::Key_Tab, 960}}) {
        ctl.setValue(480);
        reported.clear();
        before.setFocus();
        click();
        ASSERT_NE(edit(), nullptr);
        QTest::keyClicks(edit(), typed);
        if (*typed == '\0') edit()->clear();
        QTest::keyClick(edit(), key);
        EXPECT_EQ(ctl.getValue(), value) << typed;
        EXPECT_EQ(reported, value == 480 ? "" : std::to_string(value) + " ") << typed;
        EXPECT_TRUE(key == Qt::Key_Tab || before.hasFocus()) << "the keyboard goes back";
        settle();
        EXPECT_EQ(ctl.findChild<QLineEdit*>(), nullptr);
        EXPECT_TRUE(window.played.empty());
    }
    ctl.setValue(480);
    reported.clear();
    click();
    QTest::keyClicks(edit(), "960");
    QTest::mousePress(&ctl.getLabel(), Qt::LeftButton, {}, {2, 2});
    EXPECT_EQ(reported, "960 NOTE 960 ") << "by a click elsewhere, too";
    EXPECT_EQ(edit(), nullptr);
}
