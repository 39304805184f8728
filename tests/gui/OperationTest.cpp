#include "gui/framework/Operation.h"

#include "backend/messages/GuiMessages.h"
#include "tests/gui/DialogHands.h"

using Backend::GuiMessage::OPERATION_DONE;

namespace
{
struct Operations : DialogHands {
    /// One that the test itself brings to its end.
    void start()
    {
        Gui::run(*control("Playing keyboard").parentWidget(),
                 {.title = "Saving...",
                  .post = [this](const WindowHandle& window) { reported = window; },
                  .failure = "Not saved."});
        settle();
    }
    void end(bool done)
    {
        reported.post({.number = OPERATION_DONE, .wparam = done});
        settle();
    }

    WindowHandle reported;
};
}  // namespace

TEST_F(Operations, CloseByTheMessageAndSayWhatFailed)
{
    start();
    EXPECT_EQ(dialogs(), "Saving...");
    end(true);
    EXPECT_EQ(dialogs(), "");
    start();
    end(false);
    EXPECT_EQ(answer(), "Error: Not saved.");
    EXPECT_TRUE(isPlayingAgain());
}

TEST_F(Operations, CloseByHandWhereNoMessageComesAndStillReceiveIt)
{
    start();
    pressIn("Saving...", "Close");
    EXPECT_EQ(dialogs(), "");
    start();
    QTest::keyClick(&dialog("Saving..."), Qt::Key_Escape);
    EXPECT_TRUE(isPlayingAgain());
    end(false);
    EXPECT_EQ(answer(), "Error: Not saved.");
    start();
    gui->destroy();
    reported.post({.number = OPERATION_DONE});
    rest();
}

TEST_F(Operations, DoNotStopThePlaying)
{
    start();
    press("C4");
    EXPECT_EQ(played(), "C4 on");
    loadKey("W", "D4");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog("Saving...")));
    EXPECT_EQ(key(QEvent::KeyPress), "D4 on");
    EXPECT_EQ(dialogs(), "Saving...");
    end(true);
    EXPECT_TRUE(isPlayingAgain());
    release("C4");
    EXPECT_EQ(played(), "C4 off") << "the key that is held stays down";
    EXPECT_EQ(key(QEvent::KeyRelease), "D4 off");
}
