#include "gui/musickeyboard/KeyPlayer.h"
#include "gui/musickeyboard/MusicKeyboardCtl.h"
#include "gui/musickeyboard/SoundingNotes.h"
#include "gui/screens/output/ChannelLights.h"
#include "tests/gui/WindowStage.h"

using namespace Gui::Output;
using namespace Backend::MidiEngine;

/// An event of channel 0 to output 0, where it names no others.
static OrvMidiMessage sent(TestEvent event)
{
    if (event.fields.channel < 0) event.fields.channel = 0;
    if (event.fields.output < 0) event.fields.output = 0;
    return event;
}

static const KeyOutlines KEYS;

/// A point of the key that no other key covers, near its front.
static QPoint frontOf(int note)
{
    constexpr int ABOVE_THE_FRONT = 5;
    const QRect key = KEYS.keyRectangle(note);
    return {key.center().x(), key.bottom() - ABOVE_THE_FRONT};
}
/// The output screen, its keyboard and the mouse on it.
struct MusicKeyboard : WindowStage, testing::Test {
    MusicKeyboard()
    {
        open({.system = false, .help = false, .computerInput = false});
        keyboard = &control<MusicKeyboardCtl>("Music keyboard");
        takePlayed();
    }
    void press(int note, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(keyboard, button, {}, frontOf(note));
    }
    void release(int note) { QTest::mouseRelease(keyboard, Qt::LeftButton, {}, frontOf(note)); }
    void drag(const QPoint& point) { mouseMove(*keyboard, point); }
    void send(const TestEvent& event)
    {
        play(sent(event));
        playSlices();
    }
    /// Whether those keys are lit, when everything has been reported and drawn.
    bool shows(const char* names)
    {
        settle();
        return QTest::qWaitFor([&] { return keyboard->getSoundingNames() == QLatin1String(names); });
    }

    MusicKeyboardCtl* keyboard;
};

TEST(KeyOutlines, GiveEveryKeyAPlaceOfItsOwnAtEveryScale)
{
    for (int note = 0; note < KeyOutlines::NOTES; ++note) EXPECT_EQ(KEYS.noteAt(frontOf(note)), note);
    for (const double scale : {0.75, 1.0, 1.25, 1.5, 1.75, 4.0}) {
        const KeyOutlines keys(scale);
        for (int note = 1; note < KeyOutlines::NOTES; ++note) {
            EXPECT_GT(keys.leftEdge(note), keys.leftEdge(note - 1)) << note;
            EXPECT_GT(keys.rightEdge(note), keys.rightEdge(note - 1)) << note;
        }
        EXPECT_EQ(keys.leftEdge(-3), qRound(5 * scale));
        EXPECT_NEAR(keys.rightEdge(200), 955 * scale, 1);
    }
}

TEST(KeyOutlines, AgreeWithTheKeyThatIsHit)
{
    for (int y = -1; y <= KEYS.getWhiteHeight(); ++y) {
        for (int x = 0; x < KEYS.getWidth(); ++x) {
            std::vector<int> outlined;
            for (int note = 0; note < KeyOutlines::NOTES; ++note)
                if (x >= KEYS.leftEdge(note) - 1 && x <= KEYS.rightEdge(note) + 1 &&
                    KEYS.keyOutline(note).contains(QPointF(x + 0.5, y + 0.5)))
                    outlined.push_back(note);
            ASSERT_LE(outlined.size(), 1u) << x << " " << y << ": outlines overlap";
            ASSERT_EQ(KEYS.noteAt({x, y}), outlined.empty() ? -1 : outlined[0]) << x << " " << y;
        }
    }
}

TEST(SoundingNotes, SoundUntilTheLastOfThemHasEndedOrEverythingEnds)
{
    SoundingNotes notes;
    for (const TestEvent& event : {noteOn(60), noteOn(60).channel(1), noteOn(60).output(2), noteOn(60), noteOff(60),
                                   noteOn(60, 0), noteOff(60) /* one too many */, noteOff(60).channel(1)})
        notes.take(sent(event));
    EXPECT_TRUE(notes.isSounding(60)) << "on output 3";
    notes.take(sent(noteOff(60).output(2)));
    notes.take(sent(noteOn(200)));
    for (const int note : {60, -1, 128, 200}) EXPECT_FALSE(notes.isSounding(note)) << note;

    const std::pair<TestEvent, std::string> ROWS[] = {{controller(120, 0), "bc"},
                                                      {controller(123, 0).channel(1), "ac"},
                                                      {{MessageType::systemReset, 0}, "c"},
                                                      {controller(121, 0), "abc"},
                                                      {{MessageType::keyPressure, 60}, "abc"}};
    for (const auto& [end, survivors] : ROWS) {
        SoundingNotes others;
        for (const TestEvent& event : {noteOn(60), noteOn(61).channel(1), noteOn(62).output(1), end})
            others.take(sent(event));
        std::string sounding;
        for (const int note : {60, 61, 62})
            if (others.isSounding(note)) sounding += static_cast<char>('a' + note - 60);
        EXPECT_EQ(sounding, survivors);
    }
}

TEST_F(MusicKeyboard, LightsWhatIsPlayed)
{
    play(sent(noteOn(60)));
    send(noteOn(64).channel(1).output(1));
    EXPECT_TRUE(shows("C4 E4"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(keyboard)->text(QAccessible::Value), "C4 E4");

    send(noteOff(60));
    EXPECT_TRUE(shows("E4"));
    setOutputEnabled(1, false);
    EXPECT_TRUE(shows("")) << "the output went, and with it what it played";
    send(noteOn(67));
    EXPECT_TRUE(shows("G4"));
    commands().postResetOrv();
    EXPECT_TRUE(shows(""));

    auto ports = gui->getMidiOutputPorts();
    ports[1].couldNotOpen = true;
    keyboard->handleMidiOutputPortsChanged(ports);
    keyboard->displayMidiOutputEvent(sent(noteOn(74).output(1)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return keyboard->isHollow(74); })) << "it is played, but nothing sounds";
    EXPECT_FALSE(keyboard->isLit(74));
    keyboard->displayMidiOutputEvent(sent(noteOff(74).output(1)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !keyboard->isHollow(74); }));

    keyboard->displayMidiOutputEvent(sent(noteOn(72)));
    keyboard->displayMidiOutputEvent(sent(noteOff(72)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return keyboard->isLit(72); })) << "though it was over at once";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !keyboard->isLit(72); }));
}

TEST_F(MusicKeyboard, PlaysWhatTheMousePressesLouderNearerToTheFront)
{
    press(60);
    EXPECT_EQ(played(), "C4 on");
    EXPECT_TRUE(shows("C4"));
    press(67, Qt::RightButton);
    drag(frontOf(60) - QPoint(2, 0));
    EXPECT_EQ(played(), "") << "the right button plays nothing, nor does moving on the key";
    drag(frontOf(62));
    EXPECT_EQ(played(), "C4 off, D4 on");
    drag({400, 200});
    EXPECT_EQ(played(), "D4 off") << "beside the keys";
    drag(frontOf(63));
    release(63);
    EXPECT_EQ(played(), "D#4 on, D#4 off");
    drag(frontOf(64));
    EXPECT_EQ(played(), "") << "a drag that began elsewhere";

    const auto velocityAt = [&](int note, int y) {
        QTest::mouseClick(keyboard, Qt::LeftButton, {}, {KEYS.keyRectangle(note).center().x(), y});
        rest();
        playSlices();
        const int velocity = player.events.empty() ? -1 : player.events.front().getD2();
        takePlayed();
        return velocity;
    };
    EXPECT_EQ(velocityAt(61, 0), 1);
    EXPECT_EQ(velocityAt(61, KEYS.getBlackHeight() - 1), 127);
    EXPECT_EQ(velocityAt(60, KEYS.getWhiteHeight() - 1), 127);
    const int middle = velocityAt(61, KEYS.getBlackHeight() / 2);
    EXPECT_TRUE(middle > 80 && middle < 110) << middle;
}

TEST_F(MusicKeyboard, LeavesNoKeyDown)
{
    const auto endBy = [&](const char* why, const std::function<void()>& end) {
        press(60);
        end();
        EXPECT_EQ(played(), "C4 on, C4 off") << why;
        release(60);
        EXPECT_EQ(played(), "") << why;
    };
    endBy("the screen was hidden", [&] { gui->showScreen(Backend::Screen::output, false); });
    gui->showScreen(Backend::Screen::output, true);
    for (const auto type : {QEvent::WindowDeactivate, QEvent::UngrabMouse, QEvent::WindowBlocked})
        endBy("the mouse was taken", [&] {
            QEvent taken(type);
            QApplication::sendEvent(keyboard, &taken);
        });
    endBy("the button came up elsewhere", [&] { mouseMove(*keyboard, frontOf(90), Qt::NoButton); });
    press(60);
    gui->destroy();
    EXPECT_EQ(played(), "C4 on, C4 off") << "the window closed";
}

TEST_F(MusicKeyboard, GivesItsClicksToAnotherWhoAsksForThem)
{
    struct : MusicKeyboardCtl::Listener {
        void keyPressed(int note, int, Qt::MouseButton button) override
        {
            taken += (button == Qt::LeftButton ? "left " : "right ") + std::to_string(note) + " ";
        }
        void keyReleased(int note) override { taken += "up " + std::to_string(note) + " "; }
        std::string taken;
    } taker;
    press(60);
    gui->getMainMusicKeyboardCtl().setListener(&taker);
    EXPECT_EQ(played(), "C4 on, C4 off");
    release(60);
    press(48);
    release(48);
    press(72, Qt::RightButton);
    EXPECT_EQ(taker.taken, "left 48 up 48 right 72 ");
    EXPECT_EQ(played(), "");
    keyboard->setListener(nullptr);
}

TEST_F(MusicKeyboard, IsBelowTheDefaultOutputAndTheChannelsThatLightUp)
{
    EXPECT_NO_THROW(control("Default output: Out 1"));
    commands().postChangeDefaultMidiOutput({SelectType::Kind::specific, 2});
    EXPECT_NO_THROW(control("Default output: Out 3"));

    const auto& lights = control<ChannelLights>("Channels");
    send(controller(7, 100).channel(9));
    EXPECT_TRUE(QTest::qWaitFor([&] { return lights.isLit(9); }));
    EXPECT_FALSE(lights.isLit(0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !lights.isLit(9); }));
}
