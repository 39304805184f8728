#include <gtest/gtest.h>

#include <QAccessible>

#include "gui/musickeyboard/KeyPlayer.h"
#include "gui/musickeyboard/MusicKeyboardCtl.h"
#include "gui/musickeyboard/SoundingNotes.h"
#include "gui/screens/output/ChannelLights.h"
#include "tests/gui/ScreenStage.h"

using namespace Gui::Output;
using namespace Backend::MidiEngine;

namespace
{
OrvMidiMessage event(MessageType type, int d1, int d2, int channel = 0, int output = 0)
{
    return {type, d1, d2, channel, output, -1, -1, -1};
}
OrvMidiMessage on(int note, int channel = 0, int output = 0)
{
    return event(MessageType::noteOn, note, 100, channel, output);
}
OrvMidiMessage off(int note, int channel = 0, int output = 0)
{
    return event(MessageType::noteOff, note, 64, channel, output);
}

/// A point of the key that no other key covers, near its front.
QPoint frontOf(int note)
{
    constexpr int ABOVE_THE_FRONT = 5;
    const QRect key = KeyOutlines::keyRectangle(note);
    return {key.center().x(), key.bottom() - ABOVE_THE_FRONT};
}

/// The output screen, its keyboard and the mouse on it.
struct KeyboardStage : ScreenStage {
    MusicKeyboardCtl* keyboard;

    KeyboardStage()
    {
        gui->showScreen(Backend::Screen::output, true);
        keyboard = find<MusicKeyboardCtl>();
        takePlayed();
    }
    void press(int note, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(keyboard, button, Qt::NoModifier, frontOf(note));
    }
    void release(int note) { QTest::mouseRelease(keyboard, Qt::LeftButton, Qt::NoModifier, frontOf(note)); }
    void drag(const QPoint& point, Qt::MouseButton button = Qt::LeftButton)
    {
        QMouseEvent move(QEvent::MouseMove, point, keyboard->mapToGlobal(point), Qt::NoButton, button, Qt::NoModifier);
        QApplication::sendEvent(keyboard, &move);
    }
    /// Whether those keys are lit, when everything has been reported and drawn.
    bool shows(const char* names)
    {
        settle();
        return QTest::qWaitFor([&] { return keyboard->getSoundingNames() == QLatin1String(names); });
    }
};
}  // namespace

TEST(KeyOutlines, GiveEveryKeyAPlaceOfItsOwn)
{
    for (int note = 0; note < KeyOutlines::NOTES; ++note) {
        const QRect key = KeyOutlines::keyRectangle(note);
        EXPECT_EQ(KeyOutlines::noteAt(frontOf(note)), note);
        EXPECT_EQ(KeyOutlines::leftEdge(note), key.left());
        EXPECT_EQ(KeyOutlines::rightEdge(note), key.left() + key.width());
        if (note > 0) {
            EXPECT_GT(KeyOutlines::leftEdge(note), KeyOutlines::leftEdge(note - 1)) << note;
            EXPECT_GT(KeyOutlines::rightEdge(note), KeyOutlines::rightEdge(note - 1)) << note;
        }
    }
    EXPECT_EQ(KeyOutlines::leftEdge(0), 5);
    EXPECT_EQ(KeyOutlines::rightEdge(127), 755) << "75 white keys of 10";
    EXPECT_EQ(KeyOutlines::leftEdge(-3), KeyOutlines::leftEdge(0));
    EXPECT_EQ(KeyOutlines::rightEdge(200), KeyOutlines::rightEdge(127));
}

TEST(KeyOutlines, AgreeWithTheKeyThatIsHit)
{
    for (int y = -1; y <= KeyOutlines::WHITE_HEIGHT; ++y) {
        for (int x = 0; x < KeyOutlines::WIDTH; ++x) {
            int outlined = -1;
            int count = 0;
            for (int note = 0; note < KeyOutlines::NOTES; ++note) {
                if (x < KeyOutlines::leftEdge(note) - 1 || x > KeyOutlines::rightEdge(note) + 1) continue;
                if (!KeyOutlines::keyOutline(note).contains(QPointF(x + 0.5, y + 0.5))) continue;
                outlined = note;
                ++count;
            }
            ASSERT_LE(count, 1) << x << " " << y << ": outlines overlap";
            ASSERT_EQ(KeyOutlines::noteAt({x, y}), outlined) << x << " " << y;
        }
    }
}

TEST(KeyOutlines, PutTheBlackKeysAboveTheWhiteOnes)
{
    const QRect cSharp = KeyOutlines::keyRectangle(61);
    EXPECT_EQ(KeyOutlines::noteAt(cSharp.topLeft()), 61);
    EXPECT_EQ(KeyOutlines::noteAt(cSharp.bottomRight()), 61);
    EXPECT_EQ(KeyOutlines::noteAt(cSharp.bottomLeft() + QPoint(0, 1)), 60);
    EXPECT_EQ(KeyOutlines::noteAt(cSharp.bottomRight() + QPoint(0, 1)), 62);
    EXPECT_EQ(KeyOutlines::noteAt(cSharp.topLeft() - QPoint(1, 0)), 60);
    EXPECT_EQ(KeyOutlines::noteAt(cSharp.topRight() + QPoint(1, 0)), 62);
}

TEST(SoundingNotes, SoundUntilTheLastOfThemHasEnded)
{
    SoundingNotes notes;
    notes.take(on(60));
    notes.take(on(60, 1));
    notes.take(on(60, 0, 2));
    notes.take(on(60));
    notes.take(off(60));
    notes.take(event(MessageType::noteOn, 60, 0));
    notes.take(off(60)) /* one too many */;
    notes.take(off(60, 1));
    EXPECT_TRUE(notes.isSounding(60)) << "on output 3";
    notes.take(off(60, 0, 2));
    EXPECT_FALSE(notes.isSounding(60));
    EXPECT_FALSE(notes.isSounding(-1));
    EXPECT_FALSE(notes.isSounding(128));
    notes.take(event(MessageType::noteOn, 200, 100));
    EXPECT_FALSE(notes.isSounding(200));
}

TEST(SoundingNotes, EndWhereEverythingEnds)
{
    const auto survivors = [](const OrvMidiMessage& end) {
        SoundingNotes notes;
        notes.take(on(60, 0, 0));
        notes.take(on(61, 1, 0));
        notes.take(on(62, 0, 1));
        notes.take(end);
        return std::string{notes.isSounding(60) ? "a" : ""} + (notes.isSounding(61) ? "b" : "") +
               (notes.isSounding(62) ? "c" : "");
    };
    EXPECT_EQ(survivors(event(MessageType::controllerChange, 120, 0)), "bc");
    EXPECT_EQ(survivors(event(MessageType::controllerChange, 123, 0, 1)), "ac");
    EXPECT_EQ(survivors(event(MessageType::systemReset, 0, 0)), "c");
    EXPECT_EQ(survivors(event(MessageType::controllerChange, 121, 0)), "abc");
    EXPECT_EQ(survivors(event(MessageType::keyPressure, 60, 0)), "abc");
}

TEST(MusicKeyboard, LightsWhatIsPlayed)
{
    KeyboardStage stage;
    stage.play(on(60, 0, 0));
    stage.play(on(64, 1, 1));
    stage.playSlices();
    EXPECT_TRUE(stage.shows("C4 E4"));
    const auto* accessible = QAccessible::queryAccessibleInterface(stage.keyboard);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->text(QAccessible::Value), "C4 E4");
    EXPECT_EQ(accessible->text(QAccessible::Name), "Music keyboard");

    stage.play(off(60, 0, 0));
    stage.playSlices();
    EXPECT_TRUE(stage.shows("E4"));
    stage.setOutputEnabled(1, false);
    EXPECT_TRUE(stage.shows("")) << "the output went, and with it what it played";
    stage.play(on(67, 0, 0));
    stage.playSlices();
    EXPECT_TRUE(stage.shows("G4"));
    stage.commands().postResetOrv();
    EXPECT_TRUE(stage.shows(""));
}

TEST(MusicKeyboard, ShowsANoteThatWasOverAtOnce)
{
    KeyboardStage stage;
    stage.keyboard->displayMidiOutputEvent(on(72));
    stage.keyboard->displayMidiOutputEvent(off(72));
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.keyboard->isLit(72); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.keyboard->isLit(72); }));
}

TEST(MusicKeyboard, PlaysWhatTheMousePresses)
{
    KeyboardStage stage;
    stage.press(60);
    EXPECT_EQ(stage.played(), "C4 on");
    EXPECT_TRUE(stage.shows("C4"));
    stage.press(67, Qt::RightButton);
    stage.drag(frontOf(60) - QPoint(2, 0));
    EXPECT_EQ(stage.played(), "") << "the right button plays nothing, nor does moving on the key";
    stage.drag(frontOf(62));
    EXPECT_EQ(stage.played(), "C4 off, D4 on");
    stage.drag({400, 200});
    EXPECT_EQ(stage.played(), "D4 off") << "beside the keys";
    stage.drag(frontOf(63));
    stage.release(63);
    EXPECT_EQ(stage.played(), "D#4 on, D#4 off");
    stage.drag(frontOf(64));
    EXPECT_EQ(stage.played(), "") << "a drag that began elsewhere";
}

TEST(MusicKeyboard, PlaysLouderNearerToTheFront)
{
    KeyboardStage stage;
    const auto velocityAt = [&](int note, int y) {
        const QPoint point(KeyOutlines::keyRectangle(note).center().x(), y);
        QTest::mouseClick(stage.keyboard, Qt::LeftButton, Qt::NoModifier, point);
        stage.rest();
        stage.playSlices();
        const int velocity = stage.player.events.empty() ? -1 : stage.player.events.front().getD2();
        stage.takePlayed();
        return velocity;
    };
    EXPECT_EQ(velocityAt(61, 0), 1);
    EXPECT_EQ(velocityAt(61, KeyOutlines::BLACK_HEIGHT - 1), 127);
    EXPECT_EQ(velocityAt(60, KeyOutlines::WHITE_HEIGHT - 1), 127);
    const int middle = velocityAt(61, KeyOutlines::BLACK_HEIGHT / 2);
    EXPECT_GT(middle, 80);
    EXPECT_LT(middle, 110);
}

TEST(MusicKeyboard, LeavesNoKeyDown)
{
    {
        KeyboardStage stage;
        stage.press(60);
        stage.gui->destroy();
        EXPECT_EQ(stage.played(), "C4 on, C4 off") << "the window closed";
    }
    KeyboardStage stage;
    const auto endOf = [&](const char* why, const std::function<void()>& end) {
        stage.press(60);
        end();
        EXPECT_EQ(stage.played(), "C4 on, C4 off") << why;
        stage.release(60);
        EXPECT_EQ(stage.played(), "") << why;
    };
    endOf("the screen was hidden", [&] { stage.gui->showScreen(Backend::Screen::output, false); });
    stage.gui->showScreen(Backend::Screen::output, true);
    for (const auto type : {QEvent::WindowDeactivate, QEvent::UngrabMouse, QEvent::WindowBlocked})
        endOf("the mouse was taken", [&] {
            QEvent taken(type);
            QApplication::sendEvent(stage.keyboard, &taken);
        });
    endOf("the button came up elsewhere", [&] { stage.drag(frontOf(90), Qt::NoButton); });
}

TEST(MusicKeyboard, GivesItsClicksToAnotherWhoAsksForThem)
{
    struct Taker final : MusicKeyboardCtl::Listener {
        std::string taken;
        void keyPressed(int note, int, Qt::MouseButton button) override
        {
            taken += (button == Qt::LeftButton ? "left " : "right ") + std::to_string(note) + " ";
        }
        void keyReleased(int note) override { taken += "up " + std::to_string(note) + " "; }
    } taker;

    KeyboardStage stage;
    stage.press(60);
    stage.gui->getMainMusicKeyboardCtl().setListener(&taker);
    EXPECT_EQ(stage.played(), "C4 on, C4 off");
    stage.release(60);
    stage.press(48);
    stage.release(48);
    stage.press(72, Qt::RightButton);
    EXPECT_EQ(taker.taken, "left 48 up 48 right 72 ");
    EXPECT_EQ(stage.played(), "");
    stage.keyboard->setListener(nullptr);
}

TEST(OutputPanel, NamesTheDefaultOutputAndLightsTheChannels)
{
    KeyboardStage stage;
    EXPECT_NO_THROW(stage.control("Default output: Out 1"));
    stage.commands().postChangeDefaultMidiOutput({SelectType::Kind::specific, 2});
    stage.settle();
    EXPECT_NO_THROW(stage.control("Default output: Out 3"));

    const auto* lights = stage.find<ChannelLights>();
    stage.play(event(MessageType::controllerChange, 7, 100, 9, 0));
    stage.playSlices();
    EXPECT_TRUE(QTest::qWaitFor([&] { return lights->isLit(9); }));
    EXPECT_FALSE(lights->isLit(0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !lights->isLit(9); }));
}
