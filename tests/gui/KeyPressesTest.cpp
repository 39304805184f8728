#include "gui/keyboard/KeyPresses.h"

#include <gtest/gtest.h>

#include <sstream>

using Source = Gui::KeyPresses::Source;

/// Key events are written as "Shift A<" where a key goes down, "A=" where it repeats and "A>" where it comes up, with
/// the modifiers that are held and separated by commas.
struct KeyPresses : testing::Test, Gui::KeyPresses::Listener {
    void keyDown(const Key& key, bool isRepeat) override { say(key.toXmlString() + (isRepeat ? "=" : "<")); }
    void keyUp(const Key& key) override { say(key.toXmlString() + ">"); }
    void showKey(int code, bool down) override { lit += (down ? " +" : " -") + std::to_string(code); }
    void say(const std::string& event) { said += (said.empty() ? "" : ",") + event; }

    /// By its name as it is printed.
    static Key keyOf(const std::string& name)
    {
        Key key = Key::fromXmlString(name);
        for (int code = 0; code < 256 && key.keyCode < 0; ++code)
            if (name.ends_with(Key{.keyCode = code}.toXmlString())) key.keyCode = code;
        return key;
    }
    /// What is reported when these happen.
    std::string play(const std::string& events, Source source = Source::window)
    {
        std::istringstream list(events);
        for (std::string event; std::getline(list, event, ',');) {
            const Key key = keyOf(event.substr(0, event.size() - 1));
            event.back() == '>' ? presses.release(source, key) : presses.press(source, key, event.back() == '=');
        }
        return std::exchange(said, "");
    }

    Gui::KeyPresses presses{*this};
    std::string said;
    std::string lit;
};

TEST_F(KeyPresses, AreReportedWithTheirModifiers)
{
    using Row = std::tuple<const char*, const char*, const char*>;
    for (const auto& [rule, happened, reported] : {
             Row{"a key that is held repeats and comes up once", "A<,A<,A=,A>,A>,A<,A>", "A<,A=,A=,A>,A<,A>"},
             {"a repeat of a key that did not go down here is nothing", "A=,A>", ""},
             {"a modifier does not modify itself", "Shift Left Shift<,Shift Left Shift>", "Left Shift<,Left Shift>"},
             {"", "Shift Right Shift<,Shift Right Shift>", "Right Shift<,Right Shift>"},
             {"", "Control Left Control<,Control Left Control>", "Left Control<,Left Control>"},
             {"", "Control Right Control<,Control Right Control>", "Right Control<,Right Control>"},
             {"", "Alt Left Alt<,Alt Left Alt>", "Left Alt<,Left Alt>"},
             {"", "Alt Right Alt<,Alt Right Alt>", "Right Alt<,Right Alt>"},
             {"", "Win Right Windows<,Win Right Windows>", "Right Windows<,Right Windows>"},
             {"but another one does", "Shift Control Left Control<,Shift Control Left Control>",
              "Shift Left Control<,Shift Left Control>"},
             {"of two of a kind the one that is still held modifies the other",
              "Left Control<,Control Right Control<,Left Control>,Right Control>",
              "Left Control<,Right Control<,Control Left Control>,Right Control>"},
             {"Shift while another key is held does not go down; a release is never a chord",
              "A<,Left Shift<,Right Shift<,Left Shift>,Right Shift>,A>", "A<,Shift Left Shift>,Right Shift>,A>"},
             {"Shift and Control are no other keys",
              "Left Control<,Control Left Shift<,Control Right Shift<,Right Shift>,Left Shift>,Left Control>",
              "Left Control<,Control Left Shift<,Control Right Shift<,Shift Right Shift>,Left Shift>,Left Control>"},
             {"a modifier that was down before counts too", "Alt Left Shift<,Win Right Shift<", ""},
             {"", "Left Shift>,Right Shift>", "Shift Left Shift>,Right Shift>"},
             {"the right Alt key is Alt even where it picks signs", "Right Alt<,Q<,Q>,Right Alt>,Q<,Q>",
              "Right Alt<,Alt Q<,Alt Q>,Right Alt>,Q<,Q>"},
             {"a modifier that came up unseen is released by the next key",
              "Left Control<,Left Windows<,Q<,Left Control>,Q>", "Left Control<,Left Windows<,Left Control>,Q<,Q>"},
         })
        EXPECT_EQ(play(happened), reported) << rule;
    presses.press(Source::window, {.keyCode = -1});
    EXPECT_EQ(play(""), "");
}

TEST_F(KeyPresses, OfAChordAndOfTheLeftWindowsKeyAreShownInPart)
{
    EXPECT_EQ(play("Left Windows<,Left Windows>"), "Left Windows<");
    EXPECT_EQ(lit, " +91 -91");
    play("A<,Left Shift<");
    EXPECT_EQ(lit, " +91 -91 +65");
}

TEST_F(KeyPresses, AreReleasedTogetherAsTheyWentDown)
{
    play("Shift A<,B<");
    play("C<", Source::hook);
    presses.releaseAll(Source::window);
    EXPECT_EQ(play(""), "Shift A>,B>");
    EXPECT_EQ(play("A>"), "");
    presses.releaseAll(Source::hook);
    EXPECT_EQ(play(""), "C>");
    EXPECT_EQ(lit, " +65 +66 +67 -65 -66 -67");
}

TEST_F(KeyPresses, BelongToTheSourceThatWasTheLast)
{
    EXPECT_EQ(play("A<", Source::hook), "A<");
    EXPECT_EQ(play("A<", Source::picture), "A=");
    presses.releaseAll(Source::hook);
    EXPECT_EQ(play("A>", Source::hook), "");
    EXPECT_EQ(play("A>", Source::picture), "A>");
}

TEST_F(KeyPresses, FromBeforeAreNothingUntilTheyComeUp)
{
    presses.ignoreUntilReleased('A');
    EXPECT_EQ(play("A<,A>"), "");
    EXPECT_EQ(play("A<"), "A<");
    presses.ignoreUntilReleased('A');
    EXPECT_EQ(play("A>"), "A>") << "what went down here is ours";
}
