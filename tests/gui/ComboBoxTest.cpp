#include "gui/framework/ComboBox.h"

#include "tests/gui/GuiStage.h"

using Gui::ComboBox;

/// Off, a bass that is not there, and two that are.
struct ComboBoxes : GuiStage, testing::Test {
    explicit ComboBoxes(ComboBox::Typing typing = ComboBox::Typing::readOnly) : combo(*this, typing, &window)
    {
        combo.setEntries({{"Off"}, {.text = "Bass", .enabled = false}, {"1 Piano", "Piano"}, {"2 Organ", "Organ"}});
        combo.setSelectedIndex(0);
        combo.resize(100, 20);
        combo.onValidate = [this](int index) {
            reported += "validate " + std::to_string(index) + " ";
            return index == vetoed;
        };
        combo.onChange = [this](int index) { reported += "change " + std::to_string(index) + " "; };
        show(combo);
    }

    void click(QPoint place = {90, 10}) { QTest::mouseClick(&combo, Qt::LeftButton, {}, place); }
    int turn(int notches)
    {
        wheel(combo, notches);
        return combo.getSelectedIndex();
    }

    ComboBox combo;
    int vetoed = -1;
    std::string reported;
};

struct EditableComboBoxes : ComboBoxes {
    EditableComboBoxes() : ComboBoxes(ComboBox::Typing::editable) {}
};

TEST_F(ComboBoxes, SkipWhatIsDisabledOrRefusedAndStopAtTheirEnds)
{
    vetoed = 2;
    EXPECT_EQ(turn(-1), 0);
    EXPECT_EQ(combo.text(), "Off");
    vetoed = -1;
    EXPECT_EQ(turn(1), 0);
    EXPECT_EQ(turn(-1), 2);
    EXPECT_EQ(combo.text(), "Piano");
    EXPECT_EQ(turn(-5), 3);
    EXPECT_EQ(reported, "validate 2 validate 2 change 2 validate 3 change 3 ");

    combo.setEntries({{"Off"}, {.text = "Bass", .enabled = false}});
    combo.setSelectedIndex(0);
    EXPECT_EQ(turn(-1), 0);
}

TEST_F(ComboBoxes, OpenAMenuAndTakeTheChoice)
{
    click({5, 10});
    EXPECT_EQ(menu(), "*Off, -Bass, 1 Piano, 2 Organ");
    choose("2 Organ");
    EXPECT_EQ(combo.text(), "Organ");
    EXPECT_EQ(reported, "validate 3 change 3 ");
    click();
    ASSERT_NE(openMenu(), nullptr) << "a choice leaves it ready for the next click";
    openMenu()->close();

    expectAccessible(combo, QAccessible::ComboBox, "Organ");
    QAccessible::queryAccessibleInterface(&combo)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    ASSERT_NE(openMenu(), nullptr) << "a screen reader opens it";
    openMenu()->close();
}

TEST_F(ComboBoxes, CloseTheirMenuByAClickWithoutOpeningItAgain)
{
    click(), click();
    EXPECT_EQ(openMenu(), nullptr);
    EXPECT_FALSE(combo.isMenuShowing());
    click();
    ASSERT_NE(openMenu(), nullptr);
    EXPECT_EQ(reported, "");

    // The window system closes it first, and hands on the click that did it.
    openMenu()->close();
    click();
    EXPECT_EQ(openMenu(), nullptr);

    combo.openMenu();
    openMenu()->close();
    settle(300);
    click();
    EXPECT_NE(openMenu(), nullptr) << "a click of its own, later";
}

TEST_F(EditableComboBoxes, OpenByTheirArrowAlone)
{
    click({5, 10});
    EXPECT_EQ(openMenu(), nullptr);
    click();
    ASSERT_NE(openMenu(), nullptr);
    openMenu()->close();

    combo.selectAll();
    QTest::keyClicks(&combo, "Organ");
    EXPECT_EQ(combo.getSelectedIndex(), 3);
    QTest::keyClicks(&combo, "s");
    EXPECT_EQ(combo.getSelectedIndex(), -1);
    EXPECT_EQ(reported, "");
    EXPECT_TRUE(window.played.empty());
}

TEST_F(ComboBoxes, AreWorkedByKeysAndLeaveTheOthersToWhatPlaysThem)
{
    QTest::keyClick(&combo, Qt::Key_Z);
    EXPECT_EQ(window.played, std::vector<int>{Qt::Key_Z});
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(combo.getSelectedIndex(), 2);
    QTest::keyClick(&combo, Qt::Key_Space);
    ASSERT_NE(openMenu(), nullptr);
    QTest::keyClick(openMenu(), Qt::Key_O);
    QTest::keyClick(openMenu(), Qt::Key_Return);
    EXPECT_EQ(combo.text(), "Off") << "a letter finds the entry";
    EXPECT_EQ(window.played.size(), 1u);
}

TEST_F(ComboBoxes, AreSetByCodeWithoutAsking)
{
    combo.setSelectedIndex(2);
    EXPECT_EQ(combo.text(), "Piano");
    combo.setSelectedIndex(9);
    EXPECT_EQ(combo.getSelectedIndex(), -1);
    EXPECT_EQ(combo.text(), "");
    combo.setSelectedIndex(3);
    Gui::Skinner::indicateInvalidValue(combo, true);
    EXPECT_EQ(combo.text(), "Organ");
    EXPECT_EQ(reported, "");
}
