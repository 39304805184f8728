#include <gtest/gtest.h>

#include <QAccessible>
#include <QButtonGroup>
#include <memory>

#include "gui/framework/ComboBox.h"
#include "gui/framework/ComboButton.h"
#include "gui/framework/Fader.h"
#include "gui/framework/Knob.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/RadioButton.h"
#include "gui/framework/TimeIntervalCtl.h"
#include "tests/gui/GuiStage.h"

namespace
{
using namespace Gui;

struct Row {
    std::unique_ptr<QWidget> control;
    QAccessible::Role role;
    const char* value;
};

TEST(Accessibility, EveryControlSaysWhatItIsAndHowItIsCalled)
{
    GuiStage stage;
    QButtonGroup group;
    auto combo = std::make_unique<ComboBox>(stage, ComboBox::Typing::readOnly);
    combo->setEntries({{"Default"}});
    combo->setSelectedIndex(0);
    auto choice = std::make_unique<ComboButton>(stage, 1, QStringList{"Sin"}, Button::at(0), nullptr);
    choice->setSelectedIndex(0);
    std::vector<Row> rows;
    const auto latching = Button::Action::latching;
    rows.push_back({std::make_unique<Button>(stage, 1, "R", Button::at(0), nullptr), QAccessible::Button, ""});
    rows.push_back(
        {std::make_unique<Button>(stage, 1, "T", Button::at(0), nullptr, latching), QAccessible::CheckBox, ""});
    rows.push_back(
        {std::make_unique<RadioButton>(stage, 1, "1", Button::at(0), nullptr, group), QAccessible::RadioButton, ""});
    rows.push_back({std::move(combo), QAccessible::ComboBox, "Default"});
    rows.push_back({std::move(choice), QAccessible::ButtonMenu, "Sin"});
    rows.push_back({std::make_unique<EditBox>(), QAccessible::EditableText, ""});
    rows.push_back({std::make_unique<Fader>(stage), QAccessible::Slider, ""});
    rows.push_back({std::make_unique<Knob>(stage), QAccessible::Slider, ""});
    rows.push_back({std::make_unique<TimeIntervalCtl>(stage, 40, 30720), QAccessible::SpinBox, "1/4"});
    rows.push_back({std::make_unique<PopupMenu>(), QAccessible::PopupMenu, ""});
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].control->setAccessibleName("Program");
        const QAccessibleInterface* reported = QAccessible::queryAccessibleInterface(rows[i].control.get());
        ASSERT_NE(reported, nullptr) << i;
        EXPECT_EQ(reported->role(), rows[i].role) << i;
        EXPECT_EQ(reported->text(QAccessible::Name), "Program") << i;
        EXPECT_EQ(reported->text(QAccessible::Value).toStdString(), rows[i].value) << i;
    }
}

TEST(Accessibility, AScreenReaderOpensAMenuAndTurnsAFader)
{
    GuiStage stage;
    ComboBox combo(stage, ComboBox::Typing::readOnly, &stage.window);
    combo.setEntries({{"Default"}});
    stage.show(combo);
    QAccessible::queryAccessibleInterface(&combo)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    ASSERT_NE(GuiStage::openMenu(), nullptr);
    GuiStage::openMenu()->close();

    Fader fader(stage, Qt::Vertical, &stage.window);
    int reported = -1;
    fader.onChange = [&](int value) { reported = value; };
    QAccessible::queryAccessibleInterface(&fader)->valueInterface()->setCurrentValue(100);
    EXPECT_EQ(reported, 100);
}
}  // namespace
