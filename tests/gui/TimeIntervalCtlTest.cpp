#include "gui/framework/TimeIntervalCtl.h"

#include <gtest/gtest.h>

#include <QLineEdit>

#include "gui/framework/TemporaryEdit.h"
#include "tests/gui/GuiStage.h"

namespace
{
using Gui::TemporaryEdit;
using Gui::TimeIntervalCtl;
using Kind = TimeIntervalType::Kind;

struct IntervalStage : GuiStage, TimeIntervalCtl::Listener {
    explicit IntervalStage(Kind kind = Kind::noteInterval) : ctl(*this, 40, 30720, &window)
    {
        ctl.setKind({kind});
        ctl.resize(120, 20);
        ctl.move(100, 100);
        ctl.setListener(this);
        show(ctl);
    }

    void valueChanged(TimeIntervalCtl&, std::int32_t ppq) override { reported.push_back(std::to_string(ppq)); }
    void kindChanged(TimeIntervalCtl&, TimeIntervalType kind, std::int32_t ppq) override
    {
        reported.push_back((kind.kind == Kind::ppq ? "PPQ " : "NOTE ") + std::to_string(ppq));
    }

    void click(Qt::MouseButton button = Qt::LeftButton)
    {
        press(ctl, MIDDLE, button);
        release(ctl, MIDDLE, button);
    }
    TemporaryEdit* edit() { return dynamic_cast<TemporaryEdit*>(QApplication::focusWidget()); }

    using Words = std::vector<std::string>;
    static constexpr QPoint MIDDLE{80, 10};
    static constexpr QPoint up(int pixels) { return {80, 10 - pixels}; }
    TimeIntervalCtl ctl;
    Words reported;
};

TEST(TimeIntervalCtl, ShowsANoteLengthOrANumber)
{
    IntervalStage stage;
    EXPECT_EQ(stage.ctl.getText(), "1/4");
    stage.ctl.setValue(481);
    EXPECT_EQ(stage.ctl.getText(), "481");
    QTest::mouseClick(&stage.ctl.getLabel(), Qt::LeftButton);
    stage.ctl.setValue(480);
    EXPECT_EQ(stage.ctl.getText(), "480");
    EXPECT_EQ(stage.ctl.getLabel().text(), "PPQ");
    EXPECT_EQ(stage.reported, IntervalStage::Words{"PPQ 481"});
}

TEST(TimeIntervalCtl, IsDraggedByNamedLengths)
{
    IntervalStage stage;
    stage.sensitivity = 10;
    GuiStage::press(stage.ctl, stage.MIDDLE);
    GuiStage::move(stage.ctl, stage.up(9));
    GuiStage::move(stage.ctl, stage.up(25));
    GuiStage::move(stage.ctl, stage.up(-10));
    GuiStage::move(stage.ctl, stage.up(0));
    GuiStage::release(stage.ctl, stage.up(0));
    EXPECT_EQ(stage.reported, (IntervalStage::Words{"720", "360", "480"}));
    EXPECT_EQ(GuiStage::openMenu(), nullptr) << "a drag that comes back is no click";
}

TEST(TimeIntervalCtl, StopsAtItsLimitAndComesBackFromWhereItWasTaken)
{
    IntervalStage stage(Kind::ppq);
    stage.ctl.setValue(50);
    for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
        GuiStage::press(stage.ctl, stage.MIDDLE, button);
        EXPECT_EQ(stage.ctl.cursor().pixmap().isNull(), button == Qt::LeftButton);
        GuiStage::move(stage.ctl, stage.up(-500), button);
        EXPECT_EQ(stage.ctl.getValue(), 40);
        GuiStage::move(stage.ctl, stage.up(-9), button);
        EXPECT_EQ(stage.ctl.getValue(), 41);
        GuiStage::move(stage.ctl, stage.up(0), button);
        GuiStage::release(stage.ctl, stage.up(0), button);
        EXPECT_EQ(stage.ctl.cursor().shape(), Qt::ArrowCursor);
    }
    stage.ctl.setLimits(60, 100);
    EXPECT_EQ(stage.ctl.getValue(), 60);
}

TEST(TimeIntervalCtl, StepsFromALengthWithoutANameToItsNeighbours)
{
    for (const auto& [from, notches, to] : std::vector<std::tuple<int, int, int>>{
             {200, 1, 240}, {200, -1, 180}, {240, 1, 320}, {30720, 1, 30720}, {41, -1, 40}}) {
        IntervalStage stage;
        stage.ctl.setValue(from);
        GuiStage::wheel(stage.ctl, notches);
        EXPECT_EQ(stage.ctl.getValue(), to) << from;
    }
    IntervalStage stage(Kind::ppq);
    QTest::keyClick(&stage.ctl, Qt::Key_Up);
    EXPECT_EQ(stage.reported, IntervalStage::Words{"481"});
}

TEST(TimeIntervalCtl, OpensTheMenuOfTheLengthsThatItAllows)
{
    IntervalStage stage;
    stage.ctl.setLimits(240, 960);
    stage.click();
    ASSERT_NE(GuiStage::openMenu(), nullptr);
    EXPECT_EQ(GuiStage::openMenu()->actions().size(), 7);
    GuiStage::choose("1/8 Dotted");
    EXPECT_EQ(stage.reported, IntervalStage::Words{"360"});
}

struct TypedRow {
    const char* typed;
    Qt::Key key;
    int value;
};

TEST(TimeIntervalCtl, TakesATypedNumberBetweenItsLimits)
{
    for (const TypedRow& row :
         {TypedRow{" 960 ", Qt::Key_Return, 960}, TypedRow{"5", Qt::Key_Enter, 40},
          TypedRow{"99999999999", Qt::Key_Return, 30720}, TypedRow{"soon", Qt::Key_Return, 480},
          TypedRow{"", Qt::Key_Return, 480}, TypedRow{"960", Qt::Key_Escape, 480}, TypedRow{"960", Qt::Key_Tab, 960}}) {
        IntervalStage stage(Kind::ppq);
        QLineEdit before(&stage.window);
        stage.show(before).setFocus();
        stage.click();
        ASSERT_NE(stage.edit(), nullptr);
        QTest::keyClicks(stage.edit(), row.typed);
        if (*row.typed == '\0') stage.edit()->clear();
        QTest::keyClick(stage.edit(), row.key);
        EXPECT_EQ(stage.ctl.getValue(), row.value) << row.typed;
        EXPECT_EQ(stage.reported.size(), row.value == 480 ? 0u : 1u) << row.typed;
        EXPECT_TRUE(row.key == Qt::Key_Tab || before.hasFocus()) << "the keyboard goes back";
        GuiStage::settle();
        EXPECT_EQ(stage.ctl.findChild<QLineEdit*>(), nullptr);
        EXPECT_TRUE(stage.window.played.empty());
    }
}

TEST(TimeIntervalCtl, TakesTheTypedNumberAtAClickElsewhere)
{
    IntervalStage stage(Kind::ppq);
    stage.click();
    QTest::keyClicks(stage.edit(), "960");
    GuiStage::press(stage.ctl.getLabel(), {2, 2});
    EXPECT_EQ(stage.reported, (IntervalStage::Words{"960", "NOTE 960"}));
    EXPECT_EQ(stage.edit(), nullptr);
}
}  // namespace
