#include "gui/framework/ComboBox.h"

#include <gtest/gtest.h>

#include <QLineEdit>

#include "tests/gui/GuiStage.h"

namespace
{
using Gui::ComboBox;
using Typing = ComboBox::Typing;

/// Off, a bass that is not there, and two that are.
struct ComboStage : GuiStage {
    explicit ComboStage(Typing typing = Typing::readOnly) : combo(*this, typing, &window)
    {
        combo.setEntries({{"Off"}, {.text = "Bass", .enabled = false}, {"1 Piano", "Piano"}, {"2 Organ", "Organ"}});
        combo.setSelectedIndex(0);
        combo.resize(100, 20);
        combo.onValidate = [this](int index) {
            reported.push_back("validate " + std::to_string(index));
            return index == vetoed;
        };
        combo.onChange = [this](int index) { reported.push_back("change " + std::to_string(index)); };
        show(combo);
    }

    void click(QPoint place = {90, 10}) { QTest::mouseClick(&combo, Qt::LeftButton, {}, place); }

    using Words = std::vector<std::string>;
    ComboBox combo;
    int vetoed = -1;
    Words reported;
};

TEST(ComboBox, SkipsWhatIsDisabledAndStopsAtItsEnds)
{
    ComboStage stage;
    GuiStage::wheel(stage.combo, 1);
    EXPECT_EQ(stage.combo.getSelectedIndex(), 0);
    GuiStage::wheel(stage.combo, -1);
    EXPECT_EQ(stage.combo.getSelectedIndex(), 2);
    EXPECT_EQ(stage.combo.text(), "Piano");
    GuiStage::wheel(stage.combo, -5);
    EXPECT_EQ(stage.combo.getSelectedIndex(), 3);
    EXPECT_EQ(stage.reported, (ComboStage::Words{"validate 2", "change 2", "validate 3", "change 3"}));

    stage.combo.setEntries({{"Off"}, {.text = "Bass", .enabled = false}});
    stage.combo.setSelectedIndex(0);
    GuiStage::wheel(stage.combo, -1);
    EXPECT_EQ(stage.combo.getSelectedIndex(), 0);
}

TEST(ComboBox, KeepsTheOldEntryWhenTheNewOneIsRefused)
{
    ComboStage stage;
    stage.vetoed = 2;
    GuiStage::wheel(stage.combo, -1);
    EXPECT_EQ(stage.combo.getSelectedIndex(), 0);
    EXPECT_EQ(stage.combo.text(), "Off");
    EXPECT_EQ(stage.reported, ComboStage::Words{"validate 2"});
}

TEST(ComboBox, OpensAMenuAndTakesTheChoice)
{
    ComboStage stage;
    stage.click({5, 10});
    QMenu* menu = GuiStage::openMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().size(), 4);
    EXPECT_FALSE(menu->actions()[1]->isEnabled());
    EXPECT_TRUE(menu->actions()[0]->isChecked());
    GuiStage::choose("2 Organ");
    EXPECT_EQ(stage.combo.text(), "Organ");
    EXPECT_EQ(stage.reported, (ComboStage::Words{"validate 3", "change 3"}));
    stage.click();
    EXPECT_NE(GuiStage::openMenu(), nullptr) << "a choice leaves it ready for the next click";
}

TEST(ComboBox, ClosesItsMenuByAClickWithoutOpeningItAgain)
{
    ComboStage stage;
    stage.click();
    stage.click();
    EXPECT_EQ(GuiStage::openMenu(), nullptr);
    EXPECT_FALSE(stage.combo.isMenuShowing());
    stage.click();
    EXPECT_NE(GuiStage::openMenu(), nullptr);
    EXPECT_TRUE(stage.reported.empty());

    // The window system closes it first, and hands on the click that did it.
    GuiStage::openMenu()->close();
    stage.click();
    EXPECT_EQ(GuiStage::openMenu(), nullptr);

    stage.combo.openMenu();
    GuiStage::openMenu()->close();
    GuiStage::settle(300);
    stage.click();
    EXPECT_NE(GuiStage::openMenu(), nullptr) << "a click of its own, later";
}

TEST(ComboBox, OpensAnEditableOneByItsArrowAlone)
{
    ComboStage stage(Typing::editable);
    stage.click({5, 10});
    EXPECT_EQ(GuiStage::openMenu(), nullptr);
    stage.click();
    EXPECT_NE(GuiStage::openMenu(), nullptr);
    GuiStage::openMenu()->close();

    stage.combo.selectAll();
    QTest::keyClicks(&stage.combo, "Organ");
    EXPECT_EQ(stage.combo.getSelectedIndex(), 3);
    QTest::keyClicks(&stage.combo, "s");
    EXPECT_EQ(stage.combo.getSelectedIndex(), -1);
    EXPECT_TRUE(stage.reported.empty());
    EXPECT_TRUE(stage.window.played.empty());
}

TEST(ComboBox, LeavesTheKeysToWhatPlaysThem)
{
    ComboStage stage;
    QTest::keyClick(&stage.combo, Qt::Key_Z);
    QTest::keyClick(&stage.combo, Qt::Key_Down);
    EXPECT_EQ(stage.window.played, (std::vector<int>{Qt::Key_Z, Qt::Key_Down}));
    EXPECT_EQ(stage.combo.getSelectedIndex(), 0);

    stage.window.plays = false;  // as in a dialog
    QTest::keyClick(&stage.combo, Qt::Key_Down);
    EXPECT_EQ(stage.combo.getSelectedIndex(), 2);
    QTest::keyClick(&stage.combo, Qt::Key_Space);
    EXPECT_NE(GuiStage::openMenu(), nullptr);
}

TEST(ComboBox, IsSetByCodeWithoutAsking)
{
    ComboStage stage;
    stage.combo.setSelectedIndex(2);
    EXPECT_EQ(stage.combo.text(), "Piano");
    stage.combo.setSelectedIndex(9);
    EXPECT_EQ(stage.combo.getSelectedIndex(), -1);
    EXPECT_EQ(stage.combo.text(), "");
    EXPECT_TRUE(stage.reported.empty());

    stage.combo.setSelectedIndex(3);
    Gui::Skinner::indicateInvalidValue(stage.combo, true);
    EXPECT_EQ(stage.combo.text(), "Organ");
}
}  // namespace
