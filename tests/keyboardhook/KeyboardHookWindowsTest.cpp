#include <windows.h>
#undef DELETE  // an access right there, a key here

#include <gtest/gtest.h>

#include "gui/keyboard/KeyboardHookProxy.h"
#include "tests/keyboardhook/KeyReceiver.h"

/// No window of this process has the focus.
struct GlobalKeyboard : KeyReceiver, testing::Test {
    enum Codes : std::int32_t { ESCAPE = 27, F12 = 123 };

    GlobalKeyboard()
    {
        EXPECT_EQ(hook.getReason(), "");
        hook.setWindowHandle(&handle);
    }
    ~GlobalKeyboard() { clear(); }

    static void play(const std::string& keys)
    {
        constexpr std::uint8_t PREFIX = 0x80;
        forEachKey(keys, [](std::uint8_t scanCode, bool isDown) {
            INPUT input{};
            input.type = INPUT_KEYBOARD;
            input.ki.wScan = scanCode & ~PREFIX;
            input.ki.dwFlags = KEYEVENTF_SCANCODE | (isDown ? 0u : KEYEVENTF_KEYUP) |
                               ((scanCode & PREFIX) != 0 ? KEYEVENTF_EXTENDEDKEY : 0u);
            EXPECT_EQ(SendInput(1, &input, sizeof input), 1u);
        });
    }
    void clear()
    {
        EXPECT_STREQ(hook.setEnabled(0), nullptr);
        hook.clearExclude();
        hook.clearControlKeys();
    }

    const Gui::KeyboardHookProxy hook{ORVANE_LIBRARY_FOLDER};
};

TEST_F(GlobalKeyboard, TakesKeysWhileItIsOnButThoseThatAreExcluded)
{
    play("Q<Q>");
    EXPECT_STREQ(hook.setEnabled(1), nullptr);
    hook.setExcludeKey(ESCAPE);
    play("Q<Q<W<Q>Up<Up>W>Escape<Escape>Left Control<E<E>Left Control>");
    expectAll(*this, "Q<Q=W<Q>Up<Up>W>Control Left Control<Control E<Control E>Left Control>");
    text.clear();
    play("Q<");
    expectAll(*this, "Q<");
    EXPECT_STREQ(hook.setEnabled(0), nullptr);
    expectAll(*this, "Q<Q>");
    play("Q>");
    EXPECT_EQ(received(), "Q<Q>");
}

TEST_F(GlobalKeyboard, IsToggledByAControlKey)
{
    hook.addControlKey(F12);
    play("Q<Q>F12<F12>W<W>F12<F12>E<E>");
    expectAll(*this, "(on)W<W>(off)");
}

TEST_F(GlobalKeyboard, ReleasesItsKeysWhenItIsUnloaded)
{
    {
        const Gui::KeyboardHookProxy other{ORVANE_LIBRARY_FOLDER};
        EXPECT_STREQ(other.setEnabled(1), nullptr);
        play("Q<");
        expectAll(*this, "Q<");
    }
    EXPECT_EQ(received(), "Q<Q>");
    play("Q>W<W>");
    EXPECT_EQ(received(), "Q<Q>");
}
