#include "gui/framework/EditBox.h"

#include <gtest/gtest.h>

#include <QDialog>

#include "gui/framework/Properties.h"
#include "tests/gui/GuiStage.h"

namespace
{
using Gui::EditBox;
using Gui::Skinner;
namespace Property = Gui::Property;

struct WheelRow {
    const char* rule;
    std::vector<const char*> properties;
    std::pair<int, int> limits;
    const char* text;
    int notches;
    Qt::KeyboardModifier modifier;
    const char* result;
};

TEST(EditBox, TurnsItsNumberWithTheWheel)
{
    const std::vector<WheelRow> rows{
        {"a step", {}, {0, 127}, "5", 1, Qt::NoModifier, "6"},
        {"not beyond the highest", {}, {0, 127}, "127", 1, Qt::NoModifier, "127"},
        {"not below the lowest, which is zero", {}, {0, 127}, "0", -1, Qt::NoModifier, "0"},
        {"what leads outside is dropped, not shortened", {}, {0, 127}, "120", 1, Qt::ShiftModifier, "120"},
        {"Shift makes twelve", {}, {-127, 127}, "0", -1, Qt::ShiftModifier, "-12"},
        {"so does the property", {Property::JUMP_BY_12}, {0, 127}, "5", 1, Qt::NoModifier, "17"},
        {"limits the wrong way round", {}, {127, 0}, "5", -2, Qt::NoModifier, "3"},
        {"a blank is zero", {Property::SHOW_ZERO_AS_BLANK}, {0, 127}, "1", -1, Qt::NoModifier, ""},
        {"and steps on from there", {Property::SHOW_ZERO_AS_BLANK}, {0, 127}, "", 1, Qt::NoModifier, "1"},
        {"a note by its name", {Property::SHOW_NOTE_STRING}, {0, 127}, "C4", 1, Qt::NoModifier, "C#4"},
        {"a note by its number", {Property::SHOW_NOTE_STRING}, {0, 127}, "59", 1, Qt::NoModifier, "C4"},
        {"an unreadable note is middle C", {Property::SHOW_NOTE_STRING}, {0, 127}, "", 1, Qt::NoModifier, "C#4"},
        {"the wheel is the parent's", {Property::NOWHEEL}, {0, 127}, "5", 1, Qt::NoModifier, "5"},
    };
    for (const WheelRow& row : rows) {
        GuiStage stage;
        EditBox edit(&stage.window);
        Skinner::setMinMax(edit, row.limits.first, row.limits.second);
        for (const char* property : row.properties) Property::set(edit, property, true);
        edit.setText(row.text);
        stage.show(edit);
        GuiStage::wheel(edit, row.notches, row.modifier);
        EXPECT_EQ(edit.text().toStdString(), row.result) << row.rule;
    }
}

TEST(EditBox, HasLimitsByDefault)
{
    EditBox edit;
    edit.setText("-127");
    edit.step(-1, false);
    EXPECT_EQ(edit.text(), "-127");
    Property::set(edit, Property::NUMBERS_ONLY, true);
    edit.setText("0");
    edit.step(-1, false);
    EXPECT_EQ(edit.text(), "0");
}

TEST(EditBox, ReportsTheWheelLikeTypingButNotASetNumber)
{
    EditBox edit;
    int reported = 0;
    QObject::connect(&edit, &QLineEdit::textEdited, [&] { ++reported; });
    edit.setNumber(7);
    EXPECT_EQ(reported, 0);
    edit.step(1, false);
    EXPECT_EQ(reported, 1);
    EXPECT_EQ(edit.text(), "8");
}

void openContextMenu(EditBox& edit)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, edit.mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&edit, &event);
}

TEST(EditBox, OffersNotesByNameAndNumber)
{
    GuiStage stage;
    EditBox edit(&stage.window);
    Property::set(edit, Property::SHOW_NOTE_STRING, true);
    edit.setText("C4");
    QString reported;
    QObject::connect(&edit, &QLineEdit::textEdited, [&](const QString& text) { reported = text; });
    stage.show(edit);
    openContextMenu(edit);
    ASSERT_NE(GuiStage::openMenu(), nullptr);
    EXPECT_EQ(GuiStage::openMenu()->actions().size(), 128);
    EXPECT_TRUE(GuiStage::openMenu()->actions()[60]->isChecked());
    GuiStage::choose("D4 (62)");
    EXPECT_EQ(reported, "D4");
    GuiStage::settle();
    EXPECT_EQ(edit.findChild<QMenu*>(), nullptr) << "the menu goes when it is closed";
}

TEST(EditBox, OffersItsNumbersIfTheyAreFewAndNotNegative)
{
    const std::vector<std::tuple<int, int, int>> rows{{0, 127, 128}, {1, 500, 500}, {0, 500, 0}, {-1, 5, 0}, {0, 0, 0}};
    for (const auto& [lowest, highest, entries] : rows) {
        GuiStage stage;
        EditBox edit(&stage.window);
        Skinner::setMinMax(edit, lowest, highest);
        Skinner::showZeroAsBlank(edit, true);
        stage.show(edit);
        openContextMenu(edit);
        QMenu* menu = GuiStage::openMenu();
        ASSERT_EQ(menu == nullptr ? 0 : menu->actions().size(), entries) << lowest << " to " << highest;
        if (menu == nullptr) continue;
        EXPECT_EQ(menu->actions().front()->text(), lowest == 0 ? "" : "1");
        menu->close();
    }
}

TEST(EditBox, PlaysNothingOfWhatIsTyped)
{
    GuiStage stage;
    EditBox edit(&stage.window);
    stage.show(edit);
    for (const auto key : {Qt::Key_A, Qt::Key_F5, Qt::Key_Up, Qt::Key_Return, Qt::Key_Escape})
        QTest::keyClick(&edit, key);
    EXPECT_TRUE(stage.window.played.empty());
    EXPECT_EQ(edit.text(), "a");
}
}  // namespace
