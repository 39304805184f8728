#include <gtest/gtest.h>

#include <string>

#include "gui/keyboard/KeyPresses.h"

namespace
{
using Gui::KeyPresses;
using Source = KeyPresses::Source;

/// Keys by their codes in a string, with "Shift " and the like before them.
class Board : public KeyPresses::Listener
{
public:
    void keyDown(const Key& key, bool isRepeat) override { say(key.toXmlString() + (isRepeat ? " again" : " down")); }
    void keyUp(const Key& key) override { say(key.toXmlString() + " up"); }
    void showKey(int code, bool down) override { lit += (down ? " +" : " -") + std::to_string(code); }

    void press(int code, Key held = {}, Source source = Source::window)
    {
        held.keyCode = code;
        presses.press(source, held);
    }
    void release(int code, Key held = {}, Source source = Source::window)
    {
        held.keyCode = code;
        presses.release(source, held);
    }

    std::string reported()
    {
        std::string text;
        text.swap(said);
        return text;
    }

    KeyPresses presses{*this};
    std::string lit;

private:
    void say(const std::string& text) { said += (said.empty() ? "" : ", ") + text; }

    std::string said;
};

constexpr Key WITH_SHIFT{.shift = true};
constexpr Key WITH_CONTROL{.control = true};
constexpr Key WITH_ALT{.alt = true};
constexpr Key WITH_WIN{.win = true};
enum Code { RIGHT_SHIFT = 1, SHIFT = 16, CONTROL = 17, WINDOWS = 91, ALT = 164, RIGHT_ALT = 165, RIGHT_CONTROL = 225 };

TEST(KeyPresses, AKeyThatIsHeldRepeatsAndComesUpOnce)
{
    Board board;
    board.press('A'), board.press('A'), board.press('A'), board.release('A'), board.release('A'), board.press('A');
    EXPECT_EQ(board.reported(), "A down, A again, A again, A up, A down");
}

TEST(KeyPresses, ARepeatOfAKeyThatDidNotGoDownHereIsNothing)
{
    Board board;
    board.presses.press(Source::window, {.keyCode = 'A'}, true);
    board.release('A');
    board.presses.press(Source::window, {.keyCode = -1});
    EXPECT_EQ(board.reported(), "");
}

TEST(KeyPresses, AModifierDoesNotModifyItself)
{
    struct Row {
        int code;
        Key held;
        const char* reported;
    };
    for (const auto& [code, held, reported] : {
             Row{SHIFT, WITH_SHIFT, "Left Shift down, Left Shift up"},
             Row{RIGHT_SHIFT, WITH_SHIFT, "Right Shift down, Right Shift up"},
             Row{CONTROL, WITH_CONTROL, "Left Control down, Left Control up"},
             Row{RIGHT_CONTROL, WITH_CONTROL, "Right Control down, Right Control up"},
             Row{ALT, WITH_ALT, "Left Alt down, Left Alt up"},
             Row{RIGHT_ALT, WITH_ALT, "Right Alt down, Right Alt up"},
             Row{92, WITH_WIN, "Right Windows down, Right Windows up"},
             Row{CONTROL, {.shift = true, .control = true}, "Shift Left Control down, Shift Left Control up"},
         }) {
        Board board;
        board.press(code, held), board.release(code, held);
        EXPECT_EQ(board.reported(), reported);
    }
}

TEST(KeyPresses, OfTwoOfAKindTheOneThatIsStillHeldModifiesTheOther)
{
    Board board;
    board.press(CONTROL), board.press(RIGHT_CONTROL, WITH_CONTROL), board.release(CONTROL),
        board.release(RIGHT_CONTROL);
    EXPECT_EQ(board.reported(), "Left Control down, Right Control down, Control Left Control up, Right Control up");
}

TEST(KeyPresses, ShiftWhileAnotherKeyIsHeldDoesNotGoDown)
{
    Board board;
    board.press('A'), board.press(SHIFT), board.press(RIGHT_SHIFT);
    EXPECT_EQ(board.reported(), "A down");
    EXPECT_EQ(board.lit, " +65");
    board.release(SHIFT);
    EXPECT_EQ(board.reported(), "Shift Left Shift up") << "with the other Shift still held; a release is never a chord";

    Board chord;
    chord.press(CONTROL), chord.press(SHIFT, WITH_CONTROL), chord.press(RIGHT_SHIFT, WITH_CONTROL);
    EXPECT_EQ(chord.reported(), "Left Control down, Control Left Shift down, Control Right Shift down")
        << "Shift and Control are no other keys";

    Board held;
    held.press(SHIFT, WITH_ALT), held.press(RIGHT_SHIFT, WITH_WIN);
    EXPECT_EQ(held.reported(), "") << "a modifier that was down before counts too";
}

TEST(KeyPresses, TheRightAltKeyIsAltEvenWhereItPicksSigns)
{
    Board board;
    board.press(RIGHT_ALT), board.press('Q'), board.release('Q'), board.release(RIGHT_ALT), board.press('Q');
    EXPECT_EQ(board.reported(), "Right Alt down, Alt Q down, Alt Q up, Right Alt up, Q down");
}

TEST(KeyPresses, OfTheLeftWindowsKeyTheReleaseIsOnlyShown)
{
    Board board;
    board.press(WINDOWS), board.release(WINDOWS);
    EXPECT_EQ(board.reported(), "Left Windows down");
    EXPECT_EQ(board.lit, " +91 -91");
}

TEST(KeyPresses, AModifierThatCameUpUnseenIsReleasedByTheNextKey)
{
    Board board;
    board.press(CONTROL), board.press(WINDOWS), board.press('Q');
    EXPECT_EQ(board.reported(), "Left Control down, Left Windows down, Left Control up, Q down");
    board.release(CONTROL);
    EXPECT_EQ(board.reported(), "");
}

TEST(KeyPresses, AreReleasedTogetherAsTheyWentDown)
{
    Board board;
    board.press('A', WITH_SHIFT), board.press('B'), board.press('C', {}, Source::hook);
    board.reported();
    board.presses.releaseAll(Source::window);
    EXPECT_EQ(board.reported(), "Shift A up, B up");
    board.release('A'), board.presses.releaseAll(Source::hook);
    EXPECT_EQ(board.reported(), "C up");
    EXPECT_EQ(board.lit, " +65 +66 +67 -65 -66 -67");
}

TEST(KeyPresses, AKeyBelongsToWhoPressedItLast)
{
    Board board;
    board.press('A', {}, Source::hook), board.press('A', {}, Source::picture);
    board.presses.releaseAll(Source::hook), board.release('A', {}, Source::hook),
        board.release('A', {}, Source::picture);
    EXPECT_EQ(board.reported(), "A down, A again, A up");
}

TEST(KeyPresses, WhatWasDownBeforeIsNothingUntilItComesUp)
{
    Board board;
    board.presses.ignoreUntilReleased('A');
    board.press('A'), board.release('A');
    EXPECT_EQ(board.reported(), "");
    board.press('A');
    board.presses.ignoreUntilReleased('A');
    board.release('A');
    EXPECT_EQ(board.reported(), "A down, A up") << "what went down here is ours";
}
}  // namespace
