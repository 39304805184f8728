#include <gtest/gtest.h>

#include <QMessageBox>

#include "backend/messages/GuiMessages.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/EditBoxDialog.h"
#include "gui/framework/OperationDialog.h"
#include "platform/Message.h"
#include "tests/gui/GuiStage.h"

namespace
{
using Backend::GuiMessage::OPERATION_DONE;
using Gui::EditBox;
using Gui::EditBoxDialog;
using Gui::OperationDialog;

TEST(OperationDialog, StartsWhenItIsShownAndClosesWhenAllIsDone)
{
    for (const bool written : {true, false}) {
        GuiStage stage;
        bool started = false;
        OperationDialog dialog(
            "Saving...", OPERATION_DONE, [&] { started = true; }, stage.window);
        EXPECT_FALSE(started);
        dialog.open();
        EXPECT_TRUE(started);
        EXPECT_TRUE(dialog.isVisible());
        dialog.handleMessage({.number = OPERATION_DONE + 1, .wparam = 1});
        EXPECT_TRUE(dialog.isVisible());
        dialog.handleMessage({.number = OPERATION_DONE, .wparam = written ? 1u : 0u});
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(dialog.result() == QDialog::Accepted, written);
    }
}

TEST(OperationDialog, LetsTheKeysPlayOnAndClosesByHand)
{
    GuiStage stage;
    OperationDialog dialog(
        "Saving...", OPERATION_DONE, [] {}, stage.window);
    dialog.open();
    QTest::keyClick(&dialog, Qt::Key_A);
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(stage.window.played, (std::vector<int>{Qt::Key_A, Qt::Key_Return}));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    dialog.handleMessage({.number = OPERATION_DONE, .wparam = 1});
}

struct DialogStage : GuiStage {
    explicit DialogStage(EditBoxDialog::Blank blank)
    {
        showEditBoxDialog(window, "New Preset", "Name", "Old", blank,
                          [this](const QString& text) { accepted.push_back(text); });
        settle();
        dialog = window.findChild<EditBoxDialog*>();
        edit = dialog->findChild<EditBox*>();
    }

    std::vector<QString> accepted;
    EditBoxDialog* dialog;
    EditBox* edit;
};

TEST(EditBoxDialog, GivesTheTextWithoutTheSpacesAround)
{
    DialogStage stage(EditBoxDialog::Blank::refused);
    EXPECT_EQ(stage.edit->text(), "Old");
    QTest::keyClicks(stage.edit, "  Rag Time ");
    QTest::keyClick(stage.edit, Qt::Key_Return);
    EXPECT_EQ(stage.accepted, std::vector<QString>{"Rag Time"});
    GuiStage::settle();
    EXPECT_EQ(stage.window.findChild<EditBoxDialog*>(), nullptr);
    EXPECT_TRUE(stage.window.played.empty());
}

TEST(EditBoxDialog, StaysAndSaysSoWhenABlankIsRefused)
{
    DialogStage stage(EditBoxDialog::Blank::refused);
    stage.edit->setText("  ");
    QTest::keyClick(stage.edit, Qt::Key_Return);
    GuiStage::settle();
    auto* error = stage.dialog->findChild<QMessageBox*>();
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->text(), "Entry cannot be blank");
    EXPECT_EQ(error->windowTitle(), "Error");
    QTest::keyClick(error, Qt::Key_Return);
    EXPECT_TRUE(stage.dialog->isVisible());
    EXPECT_TRUE(stage.accepted.empty());
}

TEST(EditBoxDialog, TakesABlankThatIsAllowedAndNothingWhenCancelled)
{
    DialogStage blank(EditBoxDialog::Blank::allowed);
    blank.edit->clear();
    blank.dialog->accept();
    EXPECT_EQ(blank.accepted, std::vector<QString>{""});

    DialogStage cancelled(EditBoxDialog::Blank::allowed);
    QTest::keyClick(cancelled.edit, Qt::Key_Escape);
    EXPECT_FALSE(cancelled.dialog->isVisible());
    EXPECT_TRUE(cancelled.accepted.empty());
}
}  // namespace
