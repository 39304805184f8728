#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QMenu>

#include "tests/gui/WindowStage.h"

namespace
{
const std::string KEYS = noteKey("Q", "C4") + noteKey("Shift Q", "D4") + noteKey("Tab", "E4") + noteKey("Space", "F4") +
                         noteKey("Escape", "G4");

constexpr quint32 Q = 24;
constexpr quint32 TAB = 23;
constexpr quint32 SPACE = 65;
constexpr quint32 ESCAPE = 9;

struct PlayingWindow : WindowStage {
    PlayingWindow()
    {
        load(KEYS);
        for (int screen = 0; screen < 12; ++screen) gui->showScreen(static_cast<Backend::Screen>(screen), false);
    }

    bool isPlaying() { return focus().accessibleName() == QLatin1String("Playing keyboard"); }
    /// Something of a screen's to type in.
    QLineEdit& addText()
    {
        auto* const text = new QLineEdit(control<QWidget>("Playing keyboard").parentWidget());
        text->show();
        return *text;
    }
};

TEST(WindowKeys, PlayFromTheStartAndRepeat)
{
    PlayingWindow window;
    ASSERT_TRUE(window.isPlaying());
    window.keyDown(Q), window.keyDown(Q), window.keyUp(Q);
    EXPECT_EQ(window.playedNow(), "C4 on, C4 off");
    window.keyDown(TAB, Qt::Key_Tab), window.keyUp(TAB, Qt::Key_Tab);
    window.keyDown(ESCAPE, Qt::Key_Escape), window.keyUp(ESCAPE, Qt::Key_Escape);
    EXPECT_EQ(window.playedNow(), "E4 on, E4 off, G4 on, G4 off") << "by itself Tab is a key to play on";
}

TEST(WindowKeys, ComeUpWhenTheFocusGoes)
{
    PlayingWindow window;
    window.orv->getComputerInputMessageManager().postSetUseKeyUpMod(true);
    const auto afterwards = [&](const std::function<void()>& happening) {
        window.keyDown(Q, Qt::Key_Q, Qt::ShiftModifier);
        EXPECT_EQ(window.playedNow(), "D4 on");
        happening();
        const std::string reported = window.playedNow();
        window.focus().clearFocus();
        window.comeBack();
        return reported;
    };
    QLineEdit& text = window.addText();
    EXPECT_EQ(afterwards([&] { text.setFocus(); }), "D4 off") << "as it went down";
    QWidget other;
    other.show();
    EXPECT_EQ(afterwards([&] {
                  other.activateWindow();
                  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
              }),
              "D4 off");
    QMenu menu(&window.surroundings);
    menu.addAction("one");
    EXPECT_EQ(afterwards([&] { menu.popup({}); }), "D4 off");
    menu.close();
    window.keyDown(Q, Qt::Key_Q);
    window.gui->destroy();
    EXPECT_EQ(window.playedNow(), "C4 on, C4 off");
}

TEST(WindowKeys, DoNotPlayInAText)
{
    PlayingWindow window;
    QLineEdit& text = window.addText();
    text.setFocus();
    QTest::keyClicks(&text, "q");
    window.keyDown(96, Qt::Key_F12), window.keyUp(96, Qt::Key_F12);
    EXPECT_EQ(window.playedNow(), "");
    EXPECT_EQ(text.text(), "q");
    window.keyDown(ESCAPE, Qt::Key_Escape), window.keyUp(ESCAPE, Qt::Key_Escape);
    EXPECT_TRUE(window.isPlaying());
    EXPECT_EQ(window.playedNow(), "") << "Escape only came back";
}

TEST(WindowKeys, ReachTheControlsWithControlAndTab)
{
    PlayingWindow window;
    auto& thru = window.control<QAbstractButton>("MIDI thru");
    window.keyDown(TAB, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_FALSE(window.isPlaying());
    for (int control = 0; control < 100 && &window.focus() != &thru; ++control)
        QTest::keyClick(&window.focus(), Qt::Key_Tab);
    const bool before = thru.isChecked();
    window.keyDown(SPACE, Qt::Key_Space), window.keyUp(SPACE, Qt::Key_Space);
    EXPECT_NE(thru.isChecked(), before) << "a key works the control";
    EXPECT_EQ(window.playedNow(), "");
    window.keyDown(Q, Qt::Key_Q), window.keyUp(Q, Qt::Key_Q);
    EXPECT_EQ(window.playedNow(), "C4 on, C4 off") << "what it has no use for plays";
    window.keyDown(ESCAPE, Qt::Key_Escape);
    EXPECT_TRUE(window.isPlaying());
}

TEST(WindowKeys, AClickLeavesHeldNotesAlone)
{
    PlayingWindow window;
    window.keyDown(Q);
    QTest::mouseClick(&window.control<QAbstractButton>("MIDI thru"), Qt::LeftButton);
    EXPECT_EQ(window.playedNow(), "C4 on");
    EXPECT_TRUE(window.isPlaying());
    window.keyUp(Q);
    EXPECT_EQ(window.playedNow(), "C4 off");
}
}  // namespace
