#include "gui/framework/Skinner.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>

#include "gui/framework/Properties.h"
#include "tests/gui/GuiStage.h"

namespace
{
using Gui::Skinner;
using Role = Gui::GdiManager::Role;
namespace Property = Gui::Property;

QColor inkOf(const QWidget& widget) { return widget.palette().color(QPalette::WindowText); }

TEST(Skinner, SkinsWhatIsMadeLaterToo)
{
    GuiStage stage;
    auto* box = new QWidget(&stage.window);
    auto* label = new QLabel("late", box);
    box->show();
    GuiStage::settle();
    EXPECT_EQ(inkOf(*label), stage.colour(Role::label));
    EXPECT_EQ(label->palette().color(QPalette::Window), stage.colour(Role::background));
    auto* later = new QLineEdit(box);
    later->show();
    GuiStage::settle();
    EXPECT_EQ(later->style(), &stage.skinner);
}

TEST(Skinner, ColoursALabelByItsMarks)
{
    GuiStage stage;
    QLabel label("x", &stage.window);
    QLineEdit edit(&stage.window);
    stage.show(label);
    stage.show(edit);
    Skinner::setText(label, true);
    EXPECT_EQ(inkOf(label), stage.colour(Role::text));
    Skinner::setGrayText(label, true);
    EXPECT_EQ(inkOf(label), stage.colour(Role::labelDisabled));
    Skinner::setGrayText(label, false);
    Skinner::setText(label, false);
    Skinner::enableControl(label, edit, false);
    EXPECT_EQ(inkOf(label), stage.colour(Role::labelDisabled));
    EXPECT_FALSE(edit.isEnabled());
    EXPECT_EQ(inkOf(edit), stage.colour(Role::labelDisabled));
    Skinner::enableControl(label, edit, true);
    EXPECT_EQ(inkOf(label), stage.colour(Role::label));
    EXPECT_EQ(inkOf(edit), stage.colour(Role::label));
    label.setProperty(Property::BKCOLOR, stage.colour(Role::selectedCell));
    EXPECT_EQ(label.palette().color(QPalette::Window), stage.colour(Role::selectedCell));
}

TEST(Skinner, LeavesAControlItsOwnFont)
{
    GuiStage stage;
    QLabel label("big", &stage.window);
    label.setFont(stage.gdi.getFont(Gui::GdiManager::FontRole::large));
    stage.show(label);
    Skinner::setText(label, true);
    EXPECT_EQ(label.font().pixelSize(), 72);
}

TEST(Skinner, BlanksAnEditWhoseValuesDifferWithoutANotice)
{
    GuiStage stage;
    QLineEdit edit("64", &stage.window);
    int reported = 0;
    QObject::connect(&edit, &QLineEdit::textChanged, [&] { ++reported; });
    stage.show(edit);
    Skinner::indicateInvalidValue(edit, true);
    EXPECT_EQ(edit.text(), "");
    EXPECT_EQ(inkOf(edit), stage.colour(Role::labelDisabled));
    edit.setText("64");
    Skinner::indicateInvalidValue(edit, false);
    EXPECT_EQ(edit.text(), "64");
    EXPECT_EQ(inkOf(edit), stage.colour(Role::label));
    EXPECT_EQ(reported, 1);
}

TEST(Skinner, FlipsASwitchOfTwoPositionsAtAClick)
{
    GuiStage stage;
    QSlider slider(Qt::Horizontal, &stage.window);
    slider.setRange(0, 1);
    slider.resize(60, 20);
    slider.setProperty(Property::TOGGLE, true);
    stage.show(slider);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {2, 10});
    EXPECT_EQ(slider.value(), 1);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {58, 10});
    EXPECT_EQ(slider.value(), 0);
    slider.setEnabled(false);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {58, 10});
    EXPECT_EQ(slider.value(), 0);
}

TEST(Skinner, DrawsAVerticalTrackbarWithItsHighestValueOnTop)
{
    GuiStage stage;
    QSlider slider(Qt::Vertical, &stage.window);
    slider.setRange(0, 10);
    slider.resize(20, 100);
    stage.show(slider);
    const auto isDiscAt = [&](int y) {
        const QImage picture = GuiStage::picture(slider);
        const double scale = slider.devicePixelRatioF();
        return picture.pixelColor(qRound(9 * scale), qRound(y * scale)) == stage.colour(Role::selectedButton);
    };
    EXPECT_TRUE(isDiscAt(93));
    EXPECT_FALSE(isDiscAt(5));
    slider.setValue(10);
    EXPECT_TRUE(isDiscAt(5));
    slider.setInvertedAppearance(true);
    EXPECT_TRUE(isDiscAt(93));
}

TEST(Skinner, FramesWhatIsTypedInAndFillsAButton)
{
    GuiStage stage;
    QLineEdit edit(&stage.window);
    QPlainTextEdit text(&stage.window);
    QPushButton button(&stage.window);
    stage.show(edit);
    stage.show(text);
    stage.show(button);
    EXPECT_EQ(GuiStage::picture(edit).pixelColor(0, 5), stage.colour(Role::controlBorder));
    EXPECT_EQ(GuiStage::picture(text).pixelColor(0, 5), stage.colour(Role::controlBorder));
    EXPECT_EQ(GuiStage::cornerColour(button), stage.colour(Role::unselectedButton));
    edit.setEnabled(false);
    button.setDown(true);
    EXPECT_EQ(GuiStage::picture(edit).pixelColor(0, 5), stage.colour(Role::controlBorderDisabled));
    EXPECT_EQ(GuiStage::cornerColour(button), stage.colour(Role::selectedButton));

    text.setProperty(Property::BKCOLOR, stage.colour(Role::selectedCell));
    const QPoint inside = text.viewport()->rect().center();
    EXPECT_EQ(text.viewport()->grab(QRect(inside, QSize(1, 1))).toImage().pixelColor(0, 0),
              stage.colour(Role::selectedCell));
}

TEST(Skinner, MarksTheChosenRowOfAListAndACheckedBox)
{
    GuiStage stage;
    QListWidget list(&stage.window);
    list.addItems({"one", "two"});
    list.resize(100, 100);
    stage.show(list);
    list.setCurrentRow(1);
    const auto groundOf = [&](int row) {
        const QRect place = list.visualItemRect(list.item(row));
        const QImage picture = list.viewport()->grab(place).toImage();
        return picture.pixelColor(picture.width() * 3 / 4, picture.height() / 2);
    };
    EXPECT_EQ(groundOf(0), stage.colour(Role::background));
    EXPECT_EQ(groundOf(1), stage.colour(Role::selectedCell));

    QCheckBox box("Mute", &stage.window);
    stage.show(box);
    const auto markColour = [&] {
        const QImage picture = GuiStage::picture(box);
        return picture.pixelColor(6 * picture.height() / box.height(), picture.height() / 2);
    };
    EXPECT_EQ(markColour(), stage.colour(Role::background));
    QTest::mouseClick(&box, Qt::LeftButton, {}, {5, box.height() / 2});
    EXPECT_TRUE(box.isChecked());
    EXPECT_EQ(markColour(), stage.colour(Role::selectedButton));
}
}  // namespace
