#include <QTreeWidget>

#include "backend/model/SetList.h"
#include "tests/gui/DialogHands.h"

using namespace Backend;

/// The dialog of the set list of P0 to P2, which is empty.
struct SetListDialog : DialogHands {
    SetListDialog() { openFileMenu("Set List..."); }

    QTreeWidget& entries() const { return *dialog("Set List").findChild<QTreeWidget*>(); }
    void press(const QString& button)
    {
        Hands::click(buttonIn(dialog("Set List"), button));
        settle();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&entries(), key, modifiers);
        settle();
    }
    void add(const QString& search)
    {
        auto& line = lineIn("Set List");
        line.setText(search);
        QTest::keyClick(&line, Qt::Key_Return);
        settle();
    }
    void select(int row) const { entries().setCurrentItem(entries().topLevelItem(row), 1); }
    /// "2 P1 capo 2|", with "*" before the current entry.
    std::string shown() const
    {
        std::string all;
        for (int row = 0; row < entries().topLevelItemCount(); ++row) {
            const auto& item = *entries().topLevelItem(row);
            all += (item.text(0) == QString::number(row + 1) ? "" : "*") + item.text(1).simplified().toStdString() +
                   (item.text(2).isEmpty() ? "" : " " + item.text(2).toStdString()) + "|";
        }
        return all;
    }
    void typeNote(const QString& text)
    {
        key(Qt::Key_F2);
        auto& line = *entries().viewport()->findChild<QLineEdit*>();
        QTest::keyClicks(&line, text);
        QTest::keyClick(&line, Qt::Key_Return);
        settle();
    }
    std::string program() { return orv->getProgram().name; }
    std::string said(const QString& name)
    {
        return QAccessible::queryAccessibleInterface(&control(name))->text(QAccessible::Value).toStdString();
    }
};

TEST_F(SetListDialog, IsFilledOrderedNotedAndUndoneByKeysAlone)
{
    add("p2");
    add("1");
    press("Add Current");
    EXPECT_EQ(shown(), "3 P2|1 P0|1 P0|");
    select(0);
    typeNote("capo 2");
    EXPECT_EQ(shown(), "3 P2 capo 2|1 P0|1 P0|");
    EXPECT_EQ(program(), "P0") << "Enter ended the note";
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(shown(), "1 P0|3 P2 capo 2|1 P0|");
    key(Qt::Key_Down, Qt::AltModifier);
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(shown(), "1 P0|1 P0|3 P2 capo 2|") << "the end";
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(shown(), "1 P0|3 P2 capo 2|1 P0|");
    key(Qt::Key_Return);
    EXPECT_EQ(program(), "P2");
    EXPECT_EQ(shown(), "1 P0|*3 P2 capo 2|1 P0|");
    key(Qt::Key_Delete);
    EXPECT_EQ(shown(), "*1 P0|1 P0|");
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown(), "*1 P0|3 P2 capo 2|1 P0|");
    EXPECT_EQ(said("Status"), "Undone: remove from the set list: 1");
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(shown(), "*1 P0|1 P0|");
}

TEST_F(SetListDialog, TheStageShowsNoteAndNextProgramWhileItIsOn)
{
    for (const char* program : {"1", "3", "2"}) add(program);
    select(2);
    typeNote("wait for drums");
    QTest::keyClick(&buttonIn(dialog("Set List"), "Next and previous program follow this list"), Qt::Key_Space);
    leave("Set List");
    comeBack();
    click("Next program");
    EXPECT_EQ(said("Program"), "3 P2. Next: 2 P1 (wait for drums)");
    click("Next program");
    EXPECT_EQ(said("Program"), "2 P1. wait for drums. End of the set list");
    click("Next program");
    EXPECT_EQ(program(), "P1") << "the end of the list";
    folder.write("Other.set", "no list");
    folder.write("Other.bnk", "<Bank><Program name='A'/></Bank>");
    commands().postLoadBank(path("Other.bnk"));
    EXPECT_EQ(said("Status"), "The set list of this bank cannot be read; it is left as it is.");
    openFileMenu("Set List...");
    EXPECT_FALSE(entries().isEnabled());
}
