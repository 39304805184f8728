#include "backend/sections/layers/LayerManager.h"
#include "gui/forms/EditableSections.h"
#include "gui/forms/LayerRecords.h"
#include "gui/forms/RecordEditor.h"
#include "gui/forms/RecordList.h"
#include "tests/gui/WindowStage.h"

struct WindowKeys : WindowStage, testing::Test {
    static constexpr quint32 Q = 'Q', TAB = Key::TAB, SPACE = Key::SPACE, ESCAPE = Key::ESCAPE, F12 = Key::F12;

    WindowKeys()
    {
        open(NO_SCREENS);
        load(noteKey("Q", "C4") + noteKey("Shift Q", "D4") + noteKey("Tab", "E4") + noteKey("Space", "F4") +
             noteKey("Escape", "G4"));
        text.setParent(control("Playing keyboard").parentWidget());
        text.show();
    }
    void tap(quint32 place, Qt::Key key)
    {
        keyDown(place, key);
        keyUp(place, key);
    }

    QLineEdit& text = *new QLineEdit;  // something of a screen's to type in
};

TEST_F(WindowKeys, PlayFromTheStartAndRepeat)
{
    ASSERT_TRUE(isPlaying());
    keyDown(Q), keyDown(Q), keyUp(Q);
    EXPECT_EQ(played(), "C4 on, C4 off");
    tap(TAB, Qt::Key_Tab);
    tap(ESCAPE, Qt::Key_Escape);
    EXPECT_EQ(played(), "E4 on, E4 off, G4 on, G4 off") << "by itself Tab is a key to play on";
    keyDown(Q);
    click(control("MIDI thru"));
    EXPECT_EQ(played(), "C4 on") << "a click does not end what is held";
    EXPECT_TRUE(isPlaying());
    keyUp(Q);
    EXPECT_EQ(played(), "C4 off");
}

TEST_F(WindowKeys, ComeUpWhenTheFocusGoes)
{
    orv->getComputerInputMessageManager().postSetUseKeyUpMod(true);
    QWidget other;
    other.show();
    QMenu menu(&surroundings);
    menu.addAction("one");
    const std::function<void()> losses[] = {[&] { text.setFocus(); },
                                            [&] {
                                                other.activateWindow();
                                                ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
                                            },
                                            [&] { menu.popup({}); }};
    for (const auto& loseFocus : losses) {
        keyDown(Q, Qt::Key_Q, Qt::ShiftModifier);
        EXPECT_EQ(played(), "D4 on");
        loseFocus();
        EXPECT_EQ(played(), "D4 off") << "as it went down";
        menu.close();
        focus().clearFocus();
        comeBack();
    }
    keyDown(Q, Qt::Key_Q);
    gui->destroy();
    EXPECT_EQ(played(), "C4 on, C4 off");
}

TEST_F(WindowKeys, StayDownWhileTheFocusGoesBetweenControlsAndPlayAgainAfterMenusAndHiddenScreens)
{
    gui->showScreen(Backend::Screen::system, true);
    keyDown(Q, Qt::Key_Q);
    keyDown(TAB, Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyClick(&focus(), Qt::Key_Tab);
    EXPECT_FALSE(isPlaying());
    EXPECT_EQ(played(), "C4 on");
    keyUp(Q, Qt::Key_Q);
    EXPECT_EQ(played(), "C4 off");

    gui->showScreen(Backend::Screen::system, false);
    EXPECT_TRUE(isPlaying()) << "the screen with the focus is hidden";
    gui->showScreen(Backend::Screen::system, true);
    for (const char* how : {"chosen", "left"}) {
        auto& output = control("Default MIDI output");
        output.setFocus();
        QTest::keyClick(&output, Qt::Key_Space);
        ASSERT_NE(openMenu(), nullptr);
        QTest::keyClick(openMenu(), how == std::string("chosen") ? Qt::Key_Return : Qt::Key_Escape);
        surroundings.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return isPlaying(); })) << how;
    }
    EXPECT_EQ(played(), "");
}

TEST_F(WindowKeys, DoNotPlayInATextAndReachTheControlsWithControlAndTab)
{
    text.setFocus();
    QTest::keyClicks(&text, "q");
    tap(F12, Qt::Key_F12);
    EXPECT_EQ(played(), "");
    EXPECT_EQ(text.text(), "q");
    tap(ESCAPE, Qt::Key_Escape);
    EXPECT_TRUE(isPlaying());
    EXPECT_EQ(played(), "") << "Escape only came back";

    auto& thru = control<QAbstractButton>("MIDI thru");
    keyDown(TAB, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_FALSE(isPlaying());
    for (int tabs = 0; tabs < 100 && &focus() != &thru; ++tabs) QTest::keyClick(&focus(), Qt::Key_Tab);
    const bool before = thru.isChecked();
    tap(SPACE, Qt::Key_Space);
    EXPECT_NE(thru.isChecked(), before) << "a key works the control";
    EXPECT_EQ(played(), "");
    tap(Q, Qt::Key_Q);
    EXPECT_EQ(played(), "C4 on, C4 off") << "what it has no use for plays";
    keyDown(ESCAPE, Qt::Key_Escape);
    EXPECT_TRUE(isPlaying());
}

TEST_F(WindowKeys, EditTheSectionThatWasUsedLastUnlessTheProgramBindsThem)
{
    struct Section {
        Section(WindowKeys& stage, int top) : window(stage)
        {
            layers.take({{}, {}});
            editor.report([] {});
            list.setGeometry(0, top, 200, 100);
            list.show();
            stage.gui->getEditableSections().add(editor, list);
        }
        void click(int row)
        {
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
        }
        std::string after(quint32 place, Qt::Key key, Qt::KeyboardModifiers held = {})
        {
            window.keyDown(place, key, held);
            window.keyUp(place, key, held);
            window.settle();
            const auto count = window.orv->getLayerManager().getLayers().size();
            return std::to_string(count) + (window.isPlaying() ? " plays" : "");
        }

        WindowKeys& window;
        Gui::Forms::FieldLists lists;
        Gui::Forms::LayerRecords layers{lists};
        Gui::Forms::RecordEditor editor{layers, window.gui->getEdits(), {}};
        Gui::Forms::RecordList list{editor, window.text.parentWidget()};
    };
    setLayers({{}, {}});
    load(noteKey("Control D", "A4"));
    orv->getComputerInputMessageManager().postSetUseKeyUpMod(true);
    constexpr quint32 D = 'D', DELETE = Key::DELETE;
    Section lower(*this, 100), upper(*this, 0);
    EXPECT_EQ(upper.after(DELETE, Qt::Key_Delete), "2 plays") << "nothing is selected";
    lower.click(0);
    EXPECT_EQ(lower.after(DELETE, Qt::Key_Delete), "1 plays");
    lower.click(0);
    EXPECT_EQ(lower.after(D, Qt::Key_D, Qt::ControlModifier), "1 plays");
    EXPECT_EQ(played(), "A4 on, A4 off") << "bound";
    for (Section* next : {&upper, &lower, &upper}) {
        keyDown(TAB, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(&focus(), &next->list);
    }
    keyDown(TAB, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(&focus(), &lower.list);
    lower.click(0);
    EXPECT_EQ(lower.after(D, Qt::Key_D, Qt::ControlModifier), "2") << "there it is not played";
    EXPECT_EQ(played(), "");
    EXPECT_EQ(lower.after(ESCAPE, Qt::Key_Escape), "2 plays");
}
