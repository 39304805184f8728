#include <QPlainTextEdit>
#include <QSlider>

#include "tests/gui/GuiStage.h"

using Gui::Skinner;
namespace Property = Gui::Property;

struct Skins : GuiStage, testing::Test {
    static QColor ink(const QWidget& widget) { return widget.palette().color(QPalette::WindowText); }
    static QColor ground(const QWidget& widget) { return widget.palette().color(QPalette::Window); }
    /// Of the left edge, five pixels down.
    static QColor frameColour(QWidget& control) { return picture(control).pixelColor(0, 5); }

    QLineEdit edit{"64", &window};
    QLabel label{"x", &window};
};

TEST_F(Skins, CoverWhatIsMadeLaterToo)
{
    auto* box = new QWidget(&window);
    auto* late = new QLabel("late", box);
    show(*box);
    EXPECT_EQ(ink(*late), colour(Role::label));
    EXPECT_EQ(ground(*late), colour(Role::background));
    auto* later = new QLineEdit(box);
    show(*later);
    EXPECT_EQ(later->style(), &skinner);
}

TEST_F(Skins, ColourALabelByItsMarksAndLeaveItItsFont)
{
    Property::setFont(label, Gui::GdiManager::FontRole::large);
    show(label);
    show(edit);
    Skinner::setText(label, true);
    EXPECT_EQ(label.font().pixelSize(), 72);
    EXPECT_EQ(ink(label), colour(Role::text));
    Skinner::setGrayText(label, true);
    EXPECT_EQ(ink(label), colour(Role::labelDisabled));
    Skinner::setGrayText(label, false);
    Skinner::setText(label, false);
    for (const bool on : {false, true}) {
        Skinner::enableControl(label, edit, on);
        EXPECT_EQ(ink(label), colour(on ? Role::label : Role::labelDisabled));
        EXPECT_EQ(ink(edit), colour(on ? Role::label : Role::labelDisabled));
        EXPECT_EQ(edit.isEnabled(), on);
    }
    label.setProperty(Property::BKCOLOR, colour(Role::selectedCell));
    EXPECT_EQ(ground(label), colour(Role::selectedCell));
}

TEST_F(Skins, BlankAnEditWhoseValuesDifferWithoutANotice)
{
    int reported = 0;
    QObject::connect(&edit, &QLineEdit::textChanged, [&] { ++reported; });
    show(edit);
    Skinner::indicateInvalidValue(edit, true);
    EXPECT_EQ(edit.text(), "");
    EXPECT_EQ(ink(edit), colour(Role::labelDisabled));
    edit.setText("64");
    Skinner::indicateInvalidValue(edit, false);
    EXPECT_EQ(edit.text(), "64");
    EXPECT_EQ(ink(edit), colour(Role::label));
    EXPECT_EQ(reported, 1);
}

TEST_F(Skins, FlipASwitchOfTwoPositionsAtAClick)
{
    QSlider slider(Qt::Horizontal, &window);
    slider.setRange(0, 1);
    slider.resize(60, 20);
    slider.setProperty(Property::TOGGLE, true);
    show(slider);
    for (const auto& [x, enabled, value] : {std::tuple(2, true, 1), {58, true, 0}, {58, false, 0}}) {
        slider.setEnabled(enabled);
        QTest::mouseClick(&slider, Qt::LeftButton, {}, {x, 10});
        EXPECT_EQ(slider.value(), value);
    }
}

TEST_F(Skins, DrawAVerticalTrackbarWithItsHighestValueOnTop)
{
    QSlider slider(Qt::Vertical, &window);
    slider.setRange(0, 10);
    slider.resize(20, 100);
    show(slider);
    const auto isDiscAt = [&](int y) {
        const double scale = slider.devicePixelRatioF();
        return picture(slider).pixelColor(qRound(9 * scale), qRound(y * scale)) == colour(Role::selectedButton);
    };
    EXPECT_TRUE(isDiscAt(93));
    EXPECT_FALSE(isDiscAt(5));
    slider.setValue(10);
    EXPECT_TRUE(isDiscAt(5));
    slider.setInvertedAppearance(true);
    EXPECT_TRUE(isDiscAt(93));
}

TEST_F(Skins, FrameWhatIsTypedInFillAButtonAndMarkTheChosenRowOfAListAndACheckedBox)
{
    QPlainTextEdit text(&window);
    QPushButton button(&window);
    show(text);
    show(button);
    EXPECT_EQ(frameColour(show(edit)), colour(Role::controlBorder));
    EXPECT_EQ(frameColour(text), colour(Role::controlBorder));
    EXPECT_EQ(cornerColour(button), colour(Role::unselectedButton));
    edit.setEnabled(false);
    button.setDown(true);
    EXPECT_EQ(frameColour(edit), colour(Role::controlBorderDisabled));
    EXPECT_EQ(cornerColour(button), colour(Role::selectedButton));

    text.setProperty(Property::BKCOLOR, colour(Role::selectedCell));
    const QPoint inside = text.viewport()->rect().center();
    EXPECT_EQ(text.viewport()->grab(QRect(inside, QSize(1, 1))).toImage().pixelColor(0, 0), colour(Role::selectedCell));

    QListWidget list(&window);
    list.addItems({"one", "two"});
    list.resize(100, 100);
    show(list);
    list.setCurrentRow(1);
    const auto groundOf = [&](int row) {
        const QImage image = list.viewport()->grab(list.visualItemRect(list.item(row))).toImage();
        return image.pixelColor(image.width() * 3 / 4, image.height() / 2);
    };
    EXPECT_EQ(groundOf(0), colour(Role::background));
    EXPECT_EQ(groundOf(1), colour(Role::selectedCell));

    QCheckBox box("Mute", &window);
    show(box);
    for (const Role mark : {Role::background, Role::selectedButton}) {
        const QImage image = picture(box);
        EXPECT_EQ(image.pixelColor(6 * image.height() / box.height(), image.height() / 2), colour(mark));
        QTest::mouseClick(&box, Qt::LeftButton, {}, {5, box.height() / 2});
    }
}
