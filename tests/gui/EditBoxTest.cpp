#include "gui/framework/EditBox.h"

#include "tests/gui/GuiStage.h"

using namespace Gui;

struct EditBoxes : GuiStage, testing::Test {
    EditBoxes()
    {
        show(edit);
        QObject::connect(&edit, &QLineEdit::textEdited, [this](const QString& text) { reported += text + " "; });
    }
    void openContextMenu()
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, edit.mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(&edit, &event);
    }

    EditBox edit{&window};
    QString reported;
};

TEST_F(EditBoxes, TurnTheirNumberWithTheWheel)
{
    using Row =
        std::tuple<const char*, const char*, std::pair<int, int>, const char*, int, Qt::KeyboardModifier, const char*>;
    constexpr auto* NOTES = Property::SHOW_NOTE_STRING;
    constexpr auto* BLANK = Property::SHOW_ZERO_AS_BLANK;
    for (const auto& [rule, property, limits, text, notches, modifier, result] : {
             Row{"a step", nullptr, {0, 127}, "5", 1, Qt::NoModifier, "6"},
             {"not beyond the highest", nullptr, {0, 127}, "127", 1, Qt::NoModifier, "127"},
             {"not below the lowest, which is zero", nullptr, {0, 127}, "0", -1, Qt::NoModifier, "0"},
             {"what leads outside is dropped, not shortened", nullptr, {0, 127}, "120", 1, Qt::ShiftModifier, "120"},
             {"Shift makes twelve", nullptr, {-127, 127}, "0", -1, Qt::ShiftModifier, "-12"},
             {"so does the property", Property::JUMP_BY_12, {0, 127}, "5", 1, Qt::NoModifier, "17"},
             {"limits the wrong way round", nullptr, {127, 0}, "5", -2, Qt::NoModifier, "3"},
             {"a blank is zero", BLANK, {0, 127}, "1", -1, Qt::NoModifier, ""},
             {"and steps on from there", BLANK, {0, 127}, "", 1, Qt::NoModifier, "1"},
             {"a note by its name", NOTES, {0, 127}, "C4", 1, Qt::NoModifier, "C#4"},
             {"a note by its number", NOTES, {0, 127}, "59", 1, Qt::NoModifier, "C4"},
             {"an unreadable note is middle C", NOTES, {0, 127}, "", 1, Qt::NoModifier, "C#4"},
             {"the wheel is the parent's", Property::NOWHEEL, {0, 127}, "5", 1, Qt::NoModifier, "5"},
         }) {
        EditBox turned(&window);
        Skinner::setMinMax(turned, limits.first, limits.second);
        if (property != nullptr) Property::set(turned, property, true);
        turned.setText(text);
        wheel(show(turned), notches, modifier);
        EXPECT_EQ(turned.text().toStdString(), result) << rule;
    }
}

TEST_F(EditBoxes, HaveLimitsByDefaultAndReportTheWheelLikeTypingButNotASetNumber)
{
    expectAccessible(edit, QAccessible::EditableText);
    edit.setNumber(-127);
    edit.step(-1, false);
    Property::set(edit, Property::NUMBERS_ONLY, true);
    edit.setNumber(0);
    edit.step(-1, false);
    EXPECT_EQ(reported, "");
    edit.step(1, false);
    EXPECT_EQ(reported, "1 ");
}

TEST_F(EditBoxes, OfferNotesByNameAndNumberElseNumbersIfTheyAreFewAndNotNegativeElseCutAndPaste)
{
    Property::set(edit, Property::SHOW_NOTE_STRING, true);
    edit.setText("C4");
    openContextMenu();
    ASSERT_NE(openMenu(), nullptr);
    EXPECT_EQ(openMenu()->actions().size(), 128);
    EXPECT_TRUE(openMenu()->actions()[60]->isChecked());
    choose("D4 (62)");
    EXPECT_EQ(reported, "D4 ");
    settle();
    EXPECT_EQ(edit.findChild<QMenu*>(), nullptr) << "the menu goes when it is closed";
    Property::set(edit, Property::SHOW_NOTE_STRING, false);

    Skinner::showZeroAsBlank(edit, true);
    for (const auto& [lowest, highest, entries] :
         std::vector<std::tuple<int, int, int>>{{0, 127, 128}, {1, 500, 500}, {0, 500, 5}, {-1, 5, 5}, {0, 0, 5}}) {
        Skinner::setMinMax(edit, lowest, highest);
        openContextMenu();
        QMenu* menu = openMenu();
        ASSERT_NE(menu, nullptr);
        ASSERT_EQ(menu->actions().size(), entries) << lowest << " to " << highest;
        EXPECT_EQ(menu->actions().front()->text(), entries == 5 ? "Undo" : lowest == 0 ? "" : "1");
        menu->close();
    }
    edit.setText("text");
    for (const auto& [command, left] : {std::pair("Select all", "text"), {"Cut", ""}, {"Paste", "text"}}) {
        openContextMenu();
        choose(command);
        EXPECT_EQ(edit.text(), left);
    }
}

TEST_F(EditBoxes, PlayNothingOfWhatIsTyped)
{
    for (const auto key : {Qt::Key_A, Qt::Key_F5, Qt::Key_Up, Qt::Key_Return, Qt::Key_Escape})
        QTest::keyClick(&edit, key);
    EXPECT_TRUE(window.played.empty());
    EXPECT_EQ(edit.text(), "a");
}
