#include "gui/framework/Button.h"

#include <gtest/gtest.h>

#include <QButtonGroup>
#include <QLineEdit>

#include "gui/framework/ComboButton.h"
#include "gui/framework/Properties.h"
#include "gui/framework/RadioButton.h"
#include "tests/gui/GuiStage.h"

namespace
{
using Gui::Button;
using Gui::ComboButton;
using Gui::RadioButton;
using Role = Gui::GdiManager::Role;
namespace Property = Gui::Property;

struct Notices : Button::Listener {
    void buttonChanged(int id, bool pressed) override { all.emplace_back(id, pressed); }
    std::vector<std::pair<int, bool>> all;
};

TEST(Button, ActsWhenItGoesDownAndComesUpAgain)
{
    GuiStage stage;
    Notices notices;
    Button button(stage, 117, "R", Button::at(5), &stage.window);
    button.setListener(&notices);
    stage.show(button);
    EXPECT_EQ(button.geometry(), QRect(5, 6, 29, 20));

    GuiStage::press(button, {2, 2});
    EXPECT_TRUE(button.isPressed());
    EXPECT_EQ(notices.all, (std::vector<std::pair<int, bool>>{{117, true}}));
    GuiStage::release(button, {2, 2});
    EXPECT_FALSE(button.isPressed());
    EXPECT_EQ(notices.all.size(), 1u);
}

TEST(Button, LatchesUntilTheNextPress)
{
    GuiStage stage;
    Notices notices;
    Button button(stage, 118, "T", Button::at(37), &stage.window, Button::Action::latching);
    button.setListener(&notices);
    stage.show(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(button.isPressed());
    GuiStage::mouse(button, QEvent::MouseButtonDblClick, Qt::LeftButton, {1, 1});  // a second press
    QTest::keyClick(&button, Qt::Key_Space);
    button.click();  // as a screen reader does
    button.setPressed(true);
    using Pairs = std::vector<std::pair<int, bool>>;
    EXPECT_EQ(notices.all, (Pairs{{118, true}, {118, false}, {118, true}, {118, false}}));
}

TEST(Button, SwallowsTheRightButtonAndLeavesOtherKeysToPlay)
{
    GuiStage stage;
    Notices notices;
    Button button(stage, 1, "K", Button::at(69), &stage.window);
    button.setListener(&notices);
    stage.show(button);
    QMouseEvent right(QEvent::MouseButtonPress, QPointF(2, 2), button.mapToGlobal(QPointF(2, 2)), Qt::RightButton,
                      Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(&button, &right);
    EXPECT_TRUE(right.isAccepted());
    QTest::keyClick(&button, Qt::Key_Q);
    EXPECT_EQ(stage.window.played, std::vector<int>{Qt::Key_Q});
    EXPECT_TRUE(notices.all.empty());
}

TEST(Button, TakesTheKeyboardByTabAlone)
{
    GuiStage stage;
    QLineEdit typing(&stage.window);
    Button button(stage, 1, "K", Button::at(200), &stage.window);
    stage.show(typing).setFocus();
    stage.show(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(typing.hasFocus());
    QTest::keyClick(&typing, Qt::Key_Tab);
    EXPECT_TRUE(button.hasFocus());
}

struct PaintRow {
    const char* rule;
    bool enabled;
    bool pressed;
    bool coloured;
    Role fill;
};

TEST(Button, IsFilledByPriority)
{
    const std::vector<PaintRow> rows{{"let go", true, false, false, Role::unselectedButton},
                                     {"pressed", true, true, false, Role::selectedButton},
                                     {"in its own colour", true, false, true, Role::frame},
                                     {"which counts when pressed, too", true, true, true, Role::frame},
                                     {"disabled before all", false, true, true, Role::disabledButton}};
    for (const PaintRow& row : rows) {
        GuiStage stage;
        Button button(stage, 1, "", Button::at(0), &stage.window, Button::Action::latching);
        button.setEnabled(row.enabled);
        button.setPressed(row.pressed);
        if (row.coloured) button.setProperty(Property::COLOR, stage.colour(Role::frame));
        stage.show(button);
        EXPECT_EQ(GuiStage::cornerColour(button), stage.colour(row.fill)) << row.rule;
    }
}

TEST(Button, IsWrittenByPriorityAndMixedWhenGray)
{
    GuiStage stage;
    Button button(stage, 1, "-", QRect(0, 0, 60, 60), &stage.window, Button::Action::latching);
    QFont font;
    font.setPixelSize(60);
    button.setFont(font);
    stage.show(button);
    EXPECT_TRUE(GuiStage::shows(GuiStage::picture(button), Qt::black));
    Gui::Skinner::setSelected(button, true);
    EXPECT_TRUE(GuiStage::shows(GuiStage::picture(button), stage.colour(Role::selectedButton)));
    Gui::Skinner::setSelected(button, false);
    button.setPressed(true);
    button.setEnabled(false);
    EXPECT_TRUE(GuiStage::shows(GuiStage::picture(button), Qt::white));

    Gui::Skinner::setGrayText(button, true);
    EXPECT_TRUE(GuiStage::shows(GuiStage::picture(button), stage.colour(Role::selectedButton)));
    EXPECT_TRUE(GuiStage::shows(GuiStage::picture(button), stage.colour(Role::unselectedButton)));
}

TEST(RadioButton, LetsGoOfTheOthersOfItsGroup)
{
    GuiStage stage;
    Notices notices;
    QButtonGroup group;
    RadioButton one(stage, 1, "1", Button::at(0), &stage.window, group);
    RadioButton two(stage, 2, "2", Button::at(32), &stage.window, group);
    Button apart(stage, 3, "3", Button::at(64), &stage.window, Button::Action::latching);
    for (Button* button : {static_cast<Button*>(&one), static_cast<Button*>(&two), &apart}) {
        button->setListener(&notices);
        stage.show(*button);
    }
    apart.setPressed(true);
    GuiStage::press(one, {1, 1});
    GuiStage::press(two, {1, 1});
    GuiStage::press(two, {1, 1});
    EXPECT_FALSE(one.isPressed());
    EXPECT_TRUE(two.isPressed());
    EXPECT_TRUE(apart.isPressed());
    two.setFocus();
    QTest::keyClick(&two, Qt::Key_Left);
    EXPECT_TRUE(one.isPressed());
    using Pairs = std::vector<std::pair<int, bool>>;
    EXPECT_EQ(notices.all, (Pairs{{1, true}, {2, true}, {2, true}, {1, true}}));
}

TEST(ComboButton, ShowsTheValueThatWasChosen)
{
    GuiStage stage;
    ComboButton button(stage, 1, {"Off", "Up & down"}, Button::at(0), &stage.window);
    int chosen = -1;
    button.onChange = [&](int index) { chosen = index; };
    button.setSelectedIndex(0);
    stage.show(button);
    EXPECT_EQ(button.text(), "Off");
    QTest::mouseClick(&button, Qt::LeftButton);
    ASSERT_NE(GuiStage::openMenu(), nullptr);
    GuiStage::choose("Up && down");
    EXPECT_EQ(chosen, 1);
    EXPECT_EQ(button.getAccessibleValue(), "Up & down");
    EXPECT_FALSE(button.isPressed());
    button.setSelectedIndex(5);
    EXPECT_EQ(button.getSelectedIndex(), -1);
}
}  // namespace
