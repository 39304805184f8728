#include "api/OrvUtils.h"
#include "gui/files/BankList.h"
#include "gui/files/CarriedPrograms.h"
#include "tests/gui/DialogHands.h"

using namespace Backend;
using Gui::Files::BankList;

struct ProgramsDialogs : DialogHands {
    ProgramsDialogs()
    {
        folder.write("Other.bnk", "<Bank>\n<Program name=\"Alone\">\n</Program>\n</Bank>\n");
        openFileMenu("Programs...");
    }

    BankList& list(int number = 0)
    {
        return *dynamic_cast<BankList*>(dialog("Programs").findChildren<QListWidget*>()[number]);
    }
    /// What it says, and the names in the file then.
    std::string key(int pressed, Qt::KeyboardModifiers held = {}, int number = 0)
    {
        list(number).setFocus();
        QTest::keyClick(&list(number), static_cast<Qt::Key>(pressed), held);
        return withNames(answer());
    }
    std::string press(const QString& text, Answer reply = Answer::Ok)
    {
        return withNames(pressIn("Programs", text, reply));
    }
    /// The operands of + may be evaluated in any order.
    std::string withNames(const std::string& said, const std::string& file = "Three.bnk") { return said + names(file); }
    std::string names(const std::string& file = "Three.bnk") { return ": " + namesIn(file); }
    void openOther()
    {
        press("Other bank...");
        chooseFile("Other Bank", path("Other.bnk"));
    }
    void drop(int row, Qt::KeyboardModifiers held, const Gui::Files::CarriedPrograms& carried)
    {
        const QPoint place = list().visualItemRect(list().item(row)).bottomLeft();
        DialogHands::drop(*list().viewport(), place, *carried.toMimeData(), held);
    }
};

TEST_F(ProgramsDialogs, KeysAndButtonsArrangeTheBankAndItsHistoryUndoesThat)
{
    EXPECT_EQ(key(Qt::Key_D, Qt::ControlModifier), ": P0, P0, P1, P2");
    EXPECT_EQ(key(Qt::Key_Down, Qt::AltModifier), ": P0, P1, P0, P2");
    EXPECT_EQ(key(Qt::Key_Down, Qt::AltModifier), ": P0, P1, P2, P0") << "the same program is selected";
    EXPECT_EQ(key(Qt::Key_Down, Qt::AltModifier), ": P0, P1, P2, P0") << "it is the last one";
    EXPECT_EQ(press("Delete"), ": P0, P1, P2");
    EXPECT_EQ(key(Qt::Key_Z, Qt::ControlModifier), ": P0, P1, P2, P0");
    EXPECT_EQ(key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier), ": P0, P1, P2");
    list().selectRows(0, 1);
    EXPECT_EQ(press("New"), ": P0, New program, P1, P2");
    press("Rename");
    auto* edit = list().findChild<QLineEdit*>();
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(), "New program") << "without its number";
    edit->setText(" Mine ");
    EXPECT_EQ(withNames(confirm(*edit)), ": P0, Mine, P1, P2");
    QTest::keyClicks(&list(), "p2");
    EXPECT_EQ(list().currentRow(), 3);
    key(Qt::Key_Return);
    EXPECT_EQ(orv->getProgram().name, "P2");
    list().selectRows(0, 4);
    EXPECT_EQ(press("Delete"), "A bank keeps one program at least.: P0, Mine, P1, P2");
    list().selectRows(1, 2);
    EXPECT_EQ(key(Qt::Key_C, Qt::ControlModifier), ": P0, Mine, P1, P2");
    EXPECT_EQ(press("Paste"), ": P0, Mine, P1, Mine, P1, P2");
    leave("Programs");
    EXPECT_TRUE(isPlayingAgain());
}

TEST_F(ProgramsDialogs, ProgramsGoBetweenTwoBanksByClipboardAndMouse)
{
    openOther();
    list().selectRows(1, 2);
    key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(key(Qt::Key_V, Qt::ControlModifier, 1), ": P0");
    EXPECT_EQ(names("Other.bnk"), ": Alone, P1, P2");
    EXPECT_EQ(list(1).item(2)->text(), "3  P2");
    EXPECT_EQ(withNames(key(Qt::Key_Z, Qt::ControlModifier, 1), "Other.bnk"), ": P0: Alone");
    EXPECT_EQ(key(Qt::Key_Z, Qt::ControlModifier), ": P0, P1, P2") << "each bank has its own history";

    drop(2, {}, {.bank = list().getBank(), .programs = {0}});
    EXPECT_EQ(names(), ": P1, P2, P0");
    drop(0, Qt::ControlModifier, {.bank = list().getBank(), .programs = {2}});
    EXPECT_EQ(names(), ": P1, P0, P2, P0");
    drop(0, {}, {.bank = list(1).getBank(), .programs = {0}});
    EXPECT_EQ(names() + names("Other.bnk"), ": P1, Alone, P0, P2, P0: Alone");
}

TEST_F(ProgramsDialogs, ProblemsAreToldAndChangeNothing)
{
    EXPECT_EQ(onFullDisk([this] { return key(Qt::Key_Delete); }),
              "Not done: delete program 1. The bank is as it was.: P0, P1, P2");
    folder.write("Three.bnk", "<Bank>\n<Program name=\"Q0\"/>\n<Program name=\"Q1\"/>\n</Bank>\n");
    EXPECT_EQ(key(Qt::Key_Delete),
              "Nothing was changed: another program has changed the bank, which is shown as it is now.: Q0, Q1");
    EXPECT_EQ(list().count(), 2);
    EXPECT_EQ(key(Qt::Key_Delete), ": Q1");
}

TEST_F(ProgramsDialogs, TheBankOfTheFactoryIsKeptIfTheUserWants)
{
    leave("Programs");
    OrvUtils::setOrvProgDir(path("prog"));
    std::filesystem::create_directories(path("prog/Default/Banks"));
    std::filesystem::copy(path("Three.bnk"), path("prog/Default/Banks/Three.bnk"));
    openFileMenu("Programs...");
    const std::string question =
        "Factory Bank: \"Three.bnk\" is as it was installed. Do you want to keep it, and to continue in a bank of your "
        "own?";
    EXPECT_EQ(press("New", Answer::Cancel), question + ": P0, P1, P2");
    EXPECT_EQ(press("New", Answer::Save), question + ": P0, P1, P2");
    chooseFile("Save Bank As", path("Mine.bnk"));
    settle();  // the change follows the copy
    EXPECT_EQ(names("Mine.bnk") + names(), ": P0, New program, P1, P2: P0, P1, P2");
    ASSERT_TRUE(QTest::qWaitFor([this] { return list().count() == 4; }));
    EXPECT_EQ(withNames(press("New"), "Mine.bnk"), ": P0, P1, P2: P0, New program, New program, P1, P2");
    leave("Programs");

    commands().postLoadBank(path("Three.bnk"));
    openFileMenu("Save...");
    EXPECT_EQ(pressIn("Save", "Save", Answer::Yes), question);
    EXPECT_EQ(dialogs(), "");

    openFileMenu("New Bank...");
    EXPECT_EQ(chooseFile("New Bank", path("Mine.bnk")),
              "Error: \"Mine.bnk\" is there already. A new bank needs a new name.");
    openFileMenu("New Bank...");
    chooseFile("New Bank", path("New.bnk"));
    EXPECT_EQ(orv->getProgram().name + names("New.bnk"), "Empty: Empty");
}
