#include "gui/framework/EditBoxDialog.h"
#include "gui/framework/Operation.h"
#include "tests/gui/DialogHands.h"

using Backend::GuiMessage::OPERATION_DONE;

struct Operations : DialogHands {
    /// One that the test itself brings to its end.
    void start()
    {
        Gui::run(*control("Playing keyboard").parentWidget(),
                 {.title = "Saving...",
                  .post = [this](const WindowHandle& handle) { window = handle; },
                  .failure = "Not saved."});
        settle();
        QObject::connect(&dialog("Saving..."), &QDialog::finished, [this](int code) { result = code; });
    }
    /// What the message box said that followed.
    std::string end(bool done)
    {
        window.post({.number = OPERATION_DONE, .wparam = done});
        return answer();
    }

    WindowHandle window;
    int result = -1;
};

TEST_F(Operations, CloseByTheMessageOrByHandAndSayWhatFailed)
{
    start();
    QTest::keyClick(&dialog("Saving..."), Qt::Key_Return);
    window.post({.number = OPERATION_DONE + 1, .wparam = 1});
    settle();
    EXPECT_EQ(dialogs(), "Saving...");
    EXPECT_EQ(end(true), "");
    EXPECT_EQ(dialogs(), "");
    EXPECT_EQ(result, QDialog::Accepted);
    start();
    EXPECT_EQ(end(false), "Error: Not saved.");
    EXPECT_EQ(result, QDialog::Rejected);
    EXPECT_TRUE(isPlayingAgain());

    start();
    pressIn("Saving...", "Close");
    EXPECT_EQ(dialogs(), "");
    start();
    leave("Saving...");
    EXPECT_TRUE(isPlayingAgain());
    EXPECT_EQ(end(false), "Error: Not saved.");
    start();
    gui->destroy();
    window.post({.number = OPERATION_DONE});
    rest();
}

TEST_F(Operations, DoNotStopThePlaying)
{
    start();
    press("C4");
    EXPECT_EQ(played(), "C4 on");
    load(noteKey("W", "D4"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog("Saving...")));
    EXPECT_EQ(key(QEvent::KeyPress), "D4 on");
    EXPECT_EQ(dialogs(), "Saving...");
    end(true);
    EXPECT_TRUE(isPlayingAgain());
    release("C4");
    EXPECT_EQ(played(), "C4 off") << "the key that is held stays down";
    EXPECT_EQ(key(QEvent::KeyRelease), "D4 off");
}

using EditBoxDialogs = DialogHands;

TEST_F(EditBoxDialogs, TakeABlankThatIsAllowedAndNothingWhenCancelled)
{
    std::vector<QString> accepted;
    const auto show = [&] {
        showEditBoxDialog(*control("Playing keyboard").parentWidget(), "New", "Name", "Old",
                          Gui::EditBoxDialog::Blank::allowed, [&](const QString& text) { accepted.push_back(text); });
        EXPECT_EQ(lineIn("New").text(), "Old");
    };
    show();
    EXPECT_EQ(enter("New", ""), "");
    show();
    leave("New");
    EXPECT_EQ(accepted, std::vector<QString>{""});
}
