#include "gui/framework/Button.h"

#include <QButtonGroup>

#include "gui/framework/ComboButton.h"
#include "gui/framework/RadioButton.h"
#include "tests/gui/GuiStage.h"

using namespace Gui;

struct Buttons : GuiStage, testing::Test, Button::Listener {
    Buttons()
    {
        for (Button* shown : {&button, &latch}) {
            shown->setListener(this);
            show(*shown);
        }
    }
    void buttonChanged(int id, bool pressed) override { notices += std::to_string(id) + (pressed ? "+ " : "- "); }

    Button button{*this, 5, "R", Button::at(5), &window};
    Button latch{*this, 6, "T", Button::at(37), &window, Button::Action::latching};
    std::string notices;
};

TEST_F(Buttons, ActWhenTheyGoDownAndLatchUntilTheNextPress)
{
    EXPECT_EQ(button.geometry(), QRect(5, 6, 29, 20));
    expectAccessible(button, QAccessible::Button);
    expectAccessible(latch, QAccessible::CheckBox);
    QTest::mousePress(&button, Qt::LeftButton, {}, {2, 2});
    EXPECT_TRUE(button.isPressed());
    EXPECT_EQ(notices, "5+ ");
    QTest::mouseRelease(&button, Qt::LeftButton, {}, {2, 2});
    EXPECT_FALSE(button.isPressed());

    click(latch);
    EXPECT_TRUE(latch.isPressed());
    QTest::mouseDClick(&latch, Qt::LeftButton, {}, {1, 1});  // a second press
    QTest::keyClick(&latch, Qt::Key_Space);
    latch.click();  // as a screen reader does
    latch.setPressed(true);
    EXPECT_EQ(notices, "5+ 6+ 6- 6+ 6- ");
}

TEST_F(Buttons, SwallowTheRightButtonLeaveOtherKeysToPlayAndTakeTheKeyboardByTabAlone)
{
    QMouseEvent right(QEvent::MouseButtonPress, QPointF(2, 2), button.mapToGlobal(QPointF(2, 2)), Qt::RightButton,
                      Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(&button, &right);
    EXPECT_TRUE(right.isAccepted());
    QTest::keyClick(&button, Qt::Key_Q);
    EXPECT_EQ(window.played, std::vector<int>{Qt::Key_Q});
    EXPECT_EQ(notices, "");

    QLineEdit typing(&window);
    show(typing).setFocus();
    Button last(*this, 1, "K", Button::at(200), &window);
    click(show(last));
    EXPECT_TRUE(typing.hasFocus());
    QTest::keyClick(&typing, Qt::Key_Tab);
    EXPECT_TRUE(last.hasFocus());
}

TEST_F(Buttons, AreFilledByPriority)
{
    using Row = std::tuple<const char*, bool, bool, bool, Role>;
    for (const auto& [rule, enabled, pressed, coloured, fill] :
         {Row{"let go", true, false, false, Role::unselectedButton},
          {"pressed", true, true, false, Role::selectedButton},
          {"in its own colour", true, false, true, Role::frame},
          {"which counts when pressed, too", true, true, true, Role::frame},
          {"disabled before all", false, true, true, Role::disabledButton}}) {
        latch.setEnabled(enabled);
        latch.setPressed(pressed);
        if (coloured) latch.setProperty(Property::COLOR, colour(Role::frame));
        EXPECT_EQ(cornerColour(latch), colour(fill)) << rule;
    }
}

TEST_F(Buttons, AreWrittenByPriorityAndMixedWhenGray)
{
    Button large(*this, 1, "-", QRect(0, 0, 60, 60), &window, Button::Action::latching);
    QFont font;
    font.setPixelSize(60);
    large.setFont(font);
    show(large);
    EXPECT_TRUE(shows(picture(large), Qt::black));
    Skinner::setSelected(large, true);
    EXPECT_TRUE(shows(large, Role::selectedButton));
    Skinner::setSelected(large, false);
    large.setPressed(true);
    large.setEnabled(false);
    EXPECT_TRUE(shows(picture(large), Qt::white));
    Skinner::setGrayText(large, true);
    EXPECT_TRUE(shows(large, Role::selectedButton));
    EXPECT_TRUE(shows(large, Role::unselectedButton));
}

TEST_F(Buttons, OfAGroupLetGoOfTheOthers)
{
    QButtonGroup group;
    RadioButton one(*this, 1, "1", Button::at(70), &window, group);
    RadioButton two(*this, 2, "2", Button::at(102), &window, group);
    for (RadioButton* radio : {&one, &two}) {
        radio->setListener(this);
        show(*radio);
    }
    expectAccessible(one, QAccessible::RadioButton);
    latch.setPressed(true);
    for (RadioButton* pressed : {&one, &two, &two}) QTest::mousePress(pressed, Qt::LeftButton, {}, {1, 1});
    EXPECT_FALSE(one.isPressed());
    EXPECT_TRUE(two.isPressed());
    EXPECT_TRUE(latch.isPressed());
    two.setFocus();
    QTest::keyClick(&two, Qt::Key_Left);
    EXPECT_TRUE(one.isPressed());
    EXPECT_EQ(notices, "1+ 2+ 2+ 1+ ");
}

TEST_F(Buttons, WithAMenuShowTheValueThatWasChosen)
{
    ComboButton combo(*this, 1, {"Off", "Up & down"}, Button::at(70), &window);
    int chosen = -1;
    combo.onChange = [&](int index) { chosen = index; };
    combo.setSelectedIndex(0);
    EXPECT_EQ(combo.text(), "Off");
    click(show(combo));
    choose("Up && down");
    EXPECT_EQ(chosen, 1);
    expectAccessible(combo, QAccessible::ButtonMenu, "Up & down");
    EXPECT_FALSE(combo.isPressed());
    combo.setSelectedIndex(5);
    EXPECT_EQ(combo.getSelectedIndex(), -1);
}
