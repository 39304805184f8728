#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <random>
#include <thread>

#include "gui/keyboard/KeyboardHookProxy.h"
#include "platform/Module.h"
#include "tests/keyboardhook/KeyReceiver.h"
#include "tests/keyboardhook/PrivateDisplay.h"

struct GlobalKeyboard : KeyReceiver, testing::Test {
    enum Codes : std::int32_t { CONTROL = 17, ESCAPE = 27, F11 = 122, F12 = 123 };
    static constexpr const char* FOLDER = ORVANE_LIBRARY_FOLDER;

    void SetUp() override
    {
        if (!PrivateDisplay::isInstalled()) GTEST_SKIP() << "Xvfb (package xvfb) is not installed";
        ::unsetenv("WAYLAND_DISPLAY");
        display.emplace();
        program.emplace();
        hook.emplace(FOLDER);
        ASSERT_EQ(hook->getReason(), "");
        hook->setWindowHandle(&handle);
        hook->setExcludeKey(ESCAPE);
    }

    void switchOn() { EXPECT_STREQ(hook->setEnabled(1), nullptr); }
    void switchOff() { EXPECT_STREQ(hook->setEnabled(0), nullptr); }

    std::optional<PrivateDisplay> display;
    std::optional<Program> program;
    std::optional<Gui::KeyboardHookProxy> hook;
};

TEST_F(GlobalKeyboard, TakesKeysFromAnotherProgramWhileItIsOnAndLeavesNothingBehind)
{
    const auto countFiles = [] {
        const std::filesystem::directory_iterator files("/proc/self/fd");
        return std::distance(begin(files), end(files));
    };
    const auto files = countFiles();
    std::string typed;
    for (int round = 0; round < 100; ++round) {
        switchOn();
        display->play("Q<Q>Numpad 5<Numpad 5>Right Control<Right Control>Windows Key<Windows Key>Escape<Escape>");
        expectAll(*this, "Q<Q>Numpad 5<Numpad 5>Control Right Control<Right Control>Windows Key<Windows Key>");
        switchOff();
        display->play("Q<Q>");
        expectAll(*program, typed += "Escape<Escape>Q<Q>");
        text.clear();
    }
    EXPECT_EQ(countFiles(), files);
    EXPECT_EQ(received(), "");
    switchOn();
    display->play("Right Shift<Left Control<Left Alt<Right Windows<Q<Q>");
    expectAll(*this,
              "Shift Right Shift<Shift Control Left Control<Shift Control Alt Left Alt<"
              "Shift Control Alt Win Right Windows<Shift Control Alt Win Q<Shift Control Alt Win Q>");
}

TEST_F(GlobalKeyboard, KeepsAChordToTheLastKeyAndItsRepeatsOrUntilItIsSwitchedOff)
{
    switchOn();
    display->repeatKeys(true);
    display->play("Q<W<Q>");
    EXPECT_TRUE(waitUntil([&] { return received().starts_with("Q<W<Q>W=W="); })) << received();
    display->play("W>Escape<Escape>");
    expectAll(*program, "Escape<Escape>");
    expectLast(*this, "W=W>");
    display->repeatKeys(false);

    text.clear();
    display->play("Q<W<");
    EXPECT_TRUE(waitUntil([&] { return received().starts_with("Q<W<"); })) << received();
    switchOff();
    EXPECT_TRUE(received().ends_with("W>Q>") || received().ends_with("Q>W>")) << received();
    text.clear();
    display->play("Q>W>E<E>");
    expectLast(*program, "E<E>");
    EXPECT_EQ(received(), "");
}

TEST_F(GlobalKeyboard, LeavesExcludedKeysToOthersEvenInAChord)
{
    switchOn();
    display->play("Q<Escape<Escape>Escape<W<W>Escape>");
    expectAll(*program, "Escape<Escape>Escape<Escape>");
    display->play("Q>");
    expectAll(*this, "Q<W<W>Q>");

    hook->clearExclude();
    display->play("Escape<Escape>");
    expectAll(*this, "Q<W<W>Q>Escape<Escape>");
    hook->setExcludeKey('W');
    display->play("W<W>");
    expectAll(*program, "Escape<Escape>Escape<Escape>W<W>");

    hook->clearExclude();
    hook->setExcludeKey(ESCAPE);
    for (int round = 0; round < 20; ++round) {
        text.clear();
        display->play("Q<Escape<W<W>Escape>Q>");
        EXPECT_TRUE(waitUntil([&] { return received().find("Q>") != std::string::npos; })) << "W may slip through";
    }
}

TEST_F(GlobalKeyboard, IsToggledByAControlKeyWhetherItIsOnOrOff)
{
    hook->addControlKey(F11);
    hook->addControlKey(F12);
    display->play("F12<F12>");
    expectAll(*this, "(on)");
    display->play("Q<");
    expectAll(*this, "(on)Q<");
    display->play("F11<F11>");
    expectAll(*this, "(on)Q<Q>(off)");
    display->play("Q>W<W>");

    Program own(Program::Whose::ours);
    display->play("F12<F12>");
    expectAll(*this, "(on)Q<Q>(off)(on)");
    program->focus();
    hook->clearControlKeys();
    display->play("F12<F12>");
    expectAll(*this, "(on)Q<Q>(off)(on)F12<F12>");

    switchOff();
    display->play("F12<F12>");
    expectLast(*program, "Q>W<W>F12<F12>");
    EXPECT_EQ(program->received().find("F11"), std::string::npos) << program->received();
}

TEST_F(GlobalKeyboard, LeavesOurOwnWindowItsKeysAndCountsOneThatWentDownThereOnlyWhenItGoesDownAgain)
{
    Program own(Program::Whose::ours);
    switchOn();
    EXPECT_TRUE(waitUntil([&] {
        display->play("Q<Q>");
        return own.received().ends_with("Q<Q>");
    }));
    received();
    text.clear();
    display->repeatKeys(true);
    display->play("Q<");
    expectLast(own, "Q>Q<");  // repeats, as a plain program sees it
    program->focus();
    switchOn();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));  // it repeats all the while
    display->repeatKeys(false);
    display->play("Q>W<W>Q<Q>");
    expectAll(*this, "W<W>Q<Q>");
}

TEST_F(GlobalKeyboard, LeavesAnotherProgramTheKeysThatItHasTaken)
{
    Program desktop;
    desktop.take("W", XCB_MOD_MASK_ANY);
    desktop.take("L", XCB_MOD_MASK_CONTROL);
    program->focus();
    switchOn();
    display->play("W<W>L<L>Q<Q>");
    expectAll(desktop, "W<W>");
    expectAll(*this, "L<L>Q<Q>");

    hook->setExcludeKey(CONTROL);
    display->play("Left Control<L<L>Left Control>");
    expectAll(desktop, "W<W>L<L>");
    display->play("E<E>");
    expectAll(*this, "L<L>Q<Q>E<E>");
}

TEST_F(GlobalKeyboard, LeavesNoKeyDownHoweverFastTheFingers)
{
    const std::string KEYS[] = {"Q", "W", "E", "Left Shift", "Escape", "Right Alt", "F12"};
    bool isDown[std::size(KEYS)] = {};
    const auto flip = [&](std::size_t key) {
        display->play(KEYS[key] + (isDown[key] ? ">" : "<"));
        isDown[key] = !isDown[key];
    };
    hook->addControlKey(F12);
    switchOn();
    std::minstd_rand dice(1);
    for (int move = 0; move < 2000; ++move) flip(dice() % std::size(KEYS));
    for (std::size_t key = 0; key < std::size(KEYS); ++key)
        if (isDown[key]) flip(key);

    hook->clearControlKeys();
    switchOn();
    EXPECT_TRUE(waitUntil([&] {
        display->play("W<W>");
        return received().ends_with("W<W>");
    }));
    EXPECT_TRUE(waitUntil([&] {
        display->play("Escape<Escape>");
        return program->received().ends_with("Escape<Escape>");
    }));
    EXPECT_TRUE(waitUntil([&] { return std::ranges::count(received(), '<') == std::ranges::count(received(), '>'); }));
}

TEST_F(GlobalKeyboard, GivesTheKeysBackWhenItIsUnloaded)
{
    std::string reason;
    const std::string path = std::string(FOLDER) + "/" + getLibraryFileName("KeyboardHook_32");
    hook.reset();
    for (int round = 0; round < 20; ++round) {
        void* const library = openLibrary(path, reason);
        ASSERT_NE(library, nullptr) << reason;
        findFunction<void(const WindowHandle*)>(library, "setWindowHandle")(&handle);
        findFunction<const char*(int)>(library, "setEnabled")(1);
        display->play("Q<");
        EXPECT_TRUE(waitUntil([&] { return received().starts_with("Q<"); })) << received();
        closeLibrary(library);
        display->play("Q>");
        EXPECT_TRUE(received().ends_with("Q>")) << received();
        text.clear();
    }
    EXPECT_EQ(::dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
    display->play("W<W>");
    expectLast(*program, "W<W>");
}

TEST_F(GlobalKeyboard, EndsWithItsServer)
{
    switchOn();
    display->play("Q<");
    expectAll(*this, "Q<");
    display->end();
    expectLast(*this, "Q>(off)");
    EXPECT_STREQ(hook->setEnabled(1), "Global keys need an X server; there is none.");
    hook->addControlKey(F12);
    switchOff();
}

TEST_F(GlobalKeyboard, SaysWhatADesktopWithoutXCosts)
{
    ::setenv("WAYLAND_DISPLAY", "wayland-0", 1);
    ::setenv("XDG_SESSION_TYPE", "wayland", 1);
    EXPECT_STREQ(hook->setEnabled(1), "On this desktop (Wayland) global keys are taken only from programs that use X.");
    display->play("Q<Q>");
    expectAll(*this, "Q<Q>");
    switchOff();
    ::unsetenv("DISPLAY");
    EXPECT_STREQ(hook->setEnabled(1), "Global keys need an X server; this desktop (Wayland) gives none.");
}
