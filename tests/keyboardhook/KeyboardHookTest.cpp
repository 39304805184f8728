#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <random>
#include <thread>

#include "gui/keyboard/KeyboardHookProxy.h"
#include "keyboardhook/KeyboardHookMessages.h"
#include "platform/Module.h"
#include "platform/WindowHandle.h"
#include "tests/keyboardhook/PrivateDisplay.h"

namespace KeyboardHook
{
namespace
{
const std::string FOLDER = ORVANE_LIBRARY_FOLDER;
enum Codes : std::int32_t { ESCAPE = 27, F11 = 122, F12 = 123 };

/// What a window of ours received: Q< where a key goes down, Q= where it repeats, Q> where it comes up, and whether
/// keys are taken.
class Window
{
public:
    const WindowHandle& getHandle() const { return handle; }

    const std::string& received(const std::string& expected)
    {
        waitUntil([&] { return toldSoFar().size() >= expected.size(); });
        return text;
    }

    const std::string& toldSoFar()
    {
        while (queue->handleNext([this](const Message& message) { write(message); })) {}
        return text;
    }

    void forget() { text.clear(); }

    /// How many keys it received going down and not coming up.
    std::ptrdiff_t whatIsDown()
    {
        toldSoFar();
        return std::count(text.begin(), text.end(), '<') - std::count(text.begin(), text.end(), '>');
    }

private:
    void write(const Message& message)
    {
        const auto event = KeyEvent::fromMessage(message);
        switch (message.number) {
            case KEY_DOWN:
                text += nameOf(event.scanCode, event.modifiers) + (event.repeat ? '=' : '<');
                break;
            case KEY_UP:
                text += nameOf(event.scanCode, event.modifiers) + '>';
                break;
            case UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED:
                text += message.wparam != 0 ? "(on)" : "(off)";
                break;
            default:
                ADD_FAILURE() << message.number;
        }
    }

    std::shared_ptr<MessageQueue> queue = std::make_shared<MessageQueue>();
    WindowHandle handle{queue};
    std::string text;
};

class GlobalKeyboard : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!PrivateDisplay::isInstalled()) GTEST_SKIP() << "Xvfb (package xvfb) is not installed";
        ::unsetenv("WAYLAND_DISPLAY");
        display.emplace();
        program.emplace();
        hook.emplace(FOLDER);
        ASSERT_EQ(hook->getReason(), "");
        hook->setWindowHandle(&window.getHandle());
        hook->setExcludeKey(ESCAPE);
    }

    void switchOn() { EXPECT_STREQ(hook->setEnabled(1), nullptr); }
    void switchOff() { EXPECT_STREQ(hook->setEnabled(0), nullptr); }

    std::optional<PrivateDisplay> display;
    std::optional<Program> program;
    Window window;
    std::optional<Gui::KeyboardHookProxy> hook;
};
}  // namespace

TEST_F(GlobalKeyboard, TakesKeysFromAnotherProgramWhileItIsOn)
{
    for (int round = 0; round < 2; ++round) {
        switchOn();
        for (const auto* key : {"Q", "Numpad 5", "Right Control", "Windows Key", "Escape"}) display->tap(key);
        EXPECT_EQ(window.received("Q<Q>Numpad 5<Numpad 5>Control Right Control<Right Control>Windows Key<Windows Key>"),
                  "Q<Q>Numpad 5<Numpad 5>Control Right Control<Right Control>Windows Key<Windows Key>");
        switchOff();
        display->tap("Q");
        const std::string expected = round == 0 ? "Escape<Escape>Q<Q>" : "Escape<Escape>Q<Q>Escape<Escape>Q<Q>";
        EXPECT_EQ(program->typed(expected), expected);
        window.forget();
    }
    EXPECT_EQ(window.toldSoFar(), "");
}

TEST_F(GlobalKeyboard, KeepsAChordToTheLastKeyAndItsRepeats)
{
    switchOn();
    display->press("Q");
    display->press("W");
    display->release("Q");
    EXPECT_EQ(window.received("Q<W<Q>W=W=").substr(0, 10), "Q<W<Q>W=W=");
    display->release("W");
    display->tap("Escape");
    EXPECT_EQ(program->typed("Escape<Escape>"), "Escape<Escape>");
    EXPECT_TRUE(window.toldSoFar().ends_with("W=W>")) << window.toldSoFar();
}

TEST_F(GlobalKeyboard, LeavesExcludedKeysToOthersEvenInAChord)
{
    switchOn();
    display->press("Q");
    display->tap("Escape");
    display->press("Escape");
    display->tap("W");
    display->release("Escape");
    EXPECT_EQ(program->typed("Escape<Escape>Escape<Escape>"), "Escape<Escape>Escape<Escape>");
    display->release("Q");
    EXPECT_EQ(window.received("Q<W<W>Q>"), "Q<W<W>Q>");

    hook->clearExclude();
    display->tap("Escape");
    EXPECT_EQ(window.received("Q<W<W>Q>Escape<Escape>"), "Q<W<W>Q>Escape<Escape>");
    hook->setExcludeKey('W');
    display->tap("W");
    EXPECT_EQ(program->typed("Escape<Escape>Escape<Escape>W<W>"), "Escape<Escape>Escape<Escape>W<W>");
}

TEST_F(GlobalKeyboard, SeesAKeyComeUpThatSlippedThroughBehindAnExcludedOne)
{
    switchOn();
    for (int round = 0; round < 20; ++round) {
        display->press("Q");
        display->press("Escape");
        display->tap("W");
        display->release("Escape");
        display->release("Q");
        EXPECT_TRUE(waitUntil([this] { return window.toldSoFar().find("Q>") != std::string::npos; }));
        window.forget();
    }
}

TEST_F(GlobalKeyboard, ReportsTheModifiersThatAreDown)
{
    switchOn();
    for (const auto* modifier : {"Right Shift", "Left Control", "Left Alt", "Right Windows"}) display->press(modifier);
    display->tap("Q");
    EXPECT_EQ(window.received("Shift Right Shift<Shift Control Left Control<Shift Control Alt Left Alt<"
                              "Shift Control Alt Win Right Windows<Shift Control Alt Win Q<Shift Control Alt Win Q>"),
              "Shift Right Shift<Shift Control Left Control<Shift Control Alt Left Alt<"
              "Shift Control Alt Win Right Windows<Shift Control Alt Win Q<Shift Control Alt Win Q>");
}

TEST_F(GlobalKeyboard, IsToggledByAControlKeyWhetherItIsOnOrOff)
{
    hook->addControlKey(F11);
    hook->addControlKey(F12);
    display->tap("F12");
    EXPECT_EQ(window.received("(on)"), "(on)");
    display->press("Q");
    EXPECT_EQ(window.received("(on)Q<"), "(on)Q<");
    display->tap("F11");
    EXPECT_EQ(window.received("(on)Q<Q>(off)"), "(on)Q<Q>(off)");
    display->release("Q");
    display->tap("W");

    Program own(Program::Whose::ours);
    display->tap("F12");
    EXPECT_EQ(window.received("(on)Q<Q>(off)(on)"), "(on)Q<Q>(off)(on)");
    program->focus();
    hook->clearControlKeys();
    display->tap("F12");
    EXPECT_EQ(window.received("(on)Q<Q>(off)(on)F12<F12>"), "(on)Q<Q>(off)(on)F12<F12>");

    switchOff();
    display->tap("F12");
    const std::string typed = program->typed("Q>W<W>F12<F12>");
    EXPECT_TRUE(typed.ends_with("Q>W<W>F12<F12>")) << typed;
    EXPECT_EQ(typed.find("F11"), std::string::npos) << typed;
}

TEST_F(GlobalKeyboard, ReleasesWhatIsHeldWhenItIsSwitchedOff)
{
    switchOn();
    display->press("Q");
    display->press("W");
    EXPECT_EQ(window.received("Q<W<").substr(0, 4), "Q<W<");
    switchOff();
    EXPECT_TRUE(window.toldSoFar().ends_with("W>Q>") || window.toldSoFar().ends_with("Q>W>")) << window.toldSoFar();
    window.forget();

    display->release("Q");
    display->release("W");
    display->tap("E");
    EXPECT_TRUE(waitUntil([this] { return program->typed("").ends_with("E<E>"); })) << program->typed("");
    EXPECT_EQ(window.toldSoFar(), "");
}

TEST_F(GlobalKeyboard, LeavesOurOwnWindowItsKeys)
{
    switchOn();
    Program own(Program::Whose::ours);
    EXPECT_TRUE(waitUntil([&] {
        display->tap("Q");
        return own.typed("").ends_with("Q<Q>");
    }));
    program->focus();
    EXPECT_TRUE(waitUntil([this] {
        display->tap("Q");
        return window.toldSoFar().ends_with("Q<Q>");
    }));
}

TEST_F(GlobalKeyboard, DoesNotCountAKeyThatWentDownElsewhereUntilItGoesDownAgain)
{
    Program own(Program::Whose::ours);
    switchOn();
    display->press("Q");
    EXPECT_TRUE(waitUntil([&] { return own.typed("").ends_with("Q>Q<"); }));  // repeats, as a plain program sees it
    program->focus();
    switchOn();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));  // it repeats all the while
    display->release("Q");
    display->tap("W");
    display->tap("Q");
    EXPECT_EQ(window.received("W<W>Q<Q>"), "W<W>Q<Q>");
}

TEST_F(GlobalKeyboard, LeavesAnotherProgramTheKeysThatItHasTaken)
{
    Program desktop;
    desktop.take("W", XCB_MOD_MASK_ANY);
    desktop.take("L", XCB_MOD_MASK_CONTROL);
    program->focus();
    switchOn();
    for (const auto* key : {"W", "L", "Q"}) display->tap(key);
    EXPECT_EQ(desktop.typed("W<W>"), "W<W>");
    EXPECT_EQ(window.received("L<L>Q<Q>"), "L<L>Q<Q>");

    hook->setExcludeKey(17);
    display->press("Left Control");
    display->tap("L");
    display->release("Left Control");
    EXPECT_EQ(desktop.typed("W<W>L<L>"), "W<W>L<L>");
    display->tap("E");
    EXPECT_EQ(window.received("L<L>Q<Q>E<E>"), "L<L>Q<Q>E<E>");
}

TEST_F(GlobalKeyboard, LeavesNoKeyDownHoweverFastTheFingers)
{
    const std::string KEYS[] = {"Q", "W", "E", "Left Shift", "Escape", "Right Alt", "F12"};
    bool isDown[std::size(KEYS)] = {};
    hook->addControlKey(F12);
    switchOn();
    std::minstd_rand dice(1);
    for (int move = 0; move < 2000; ++move) {
        const auto key = dice() % std::size(KEYS);
        isDown[key] ? display->release(KEYS[key]) : display->press(KEYS[key]);
        isDown[key] = !isDown[key];
    }
    for (std::size_t key = 0; key < std::size(KEYS); ++key)
        if (isDown[key]) display->release(KEYS[key]);

    hook->clearControlKeys();
    switchOn();
    EXPECT_TRUE(waitUntil([this] {
        display->tap("W");
        return window.toldSoFar().ends_with("W<W>");
    }));
    EXPECT_TRUE(waitUntil([this] {
        display->tap("Escape");
        return program->typed("").ends_with("Escape<Escape>");
    }));
    EXPECT_TRUE(waitUntil([this] { return window.whatIsDown() == 0; })) << window.whatIsDown();
}

TEST_F(GlobalKeyboard, LeavesNothingBehindAfterManyRounds)
{
    const auto countFiles = [] {
        const std::filesystem::directory_iterator files("/proc/self/fd");
        return std::distance(begin(files), end(files));
    };
    const auto files = countFiles();
    for (int round = 0; round < 100; ++round) {
        switchOn();
        display->tap("Q");
        EXPECT_EQ(window.received("Q<Q>"), "Q<Q>");
        switchOff();
        window.forget();
    }
    EXPECT_EQ(countFiles(), files);
    display->tap("Q");
    EXPECT_EQ(program->typed("Q<Q>"), "Q<Q>");
}

TEST_F(GlobalKeyboard, GivesTheKeysBackWhenItIsUnloaded)
{
    std::string reason;
    const std::string path = FOLDER + "/" + getLibraryFileName("KeyboardHook_32");
    hook.reset();
    for (int round = 0; round < 20; ++round) {
        void* const library = openLibrary(path, reason);
        ASSERT_NE(library, nullptr) << reason;
        findFunction<void(const WindowHandle*)>(library, "setWindowHandle")(&window.getHandle());
        findFunction<const char*(int)>(library, "setEnabled")(1);
        display->press("Q");
        EXPECT_EQ(window.received("Q<").substr(0, 2), "Q<");
        closeLibrary(library);
        display->release("Q");
        EXPECT_TRUE(window.toldSoFar().ends_with("Q>")) << window.toldSoFar();
        window.forget();
    }
    EXPECT_EQ(::dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
    display->tap("W");
    EXPECT_TRUE(waitUntil([this] { return program->typed("").ends_with("W<W>"); })) << program->typed("");
}

TEST_F(GlobalKeyboard, EndsWithItsServer)
{
    switchOn();
    display->press("Q");
    EXPECT_EQ(window.received("Q<"), "Q<");
    display->end();
    EXPECT_TRUE(waitUntil([this] { return window.toldSoFar().ends_with("Q>(off)"); })) << window.toldSoFar();
    EXPECT_STREQ(hook->setEnabled(1), "Global keys need an X server; there is none.");
    hook->addControlKey(F12);
    EXPECT_STREQ(hook->setEnabled(0), nullptr);
}

TEST_F(GlobalKeyboard, SaysWhatADesktopWithoutXCosts)
{
    ::setenv("WAYLAND_DISPLAY", "wayland-0", 1);
    ::setenv("XDG_SESSION_TYPE", "wayland", 1);
    EXPECT_STREQ(hook->setEnabled(1), "On this desktop (Wayland) global keys are taken only from programs that use X.");
    display->tap("Q");
    EXPECT_EQ(window.received("Q<Q>"), "Q<Q>");
    switchOff();
    ::unsetenv("DISPLAY");
    EXPECT_STREQ(hook->setEnabled(1), "Global keys need an X server; this desktop (Wayland) gives none.");
}

TEST(KeyboardHookProxy, IsHarmlessWithoutItsLibrary)
{
    const Gui::KeyboardHookProxy proxy("/nowhere");
    EXPECT_NE(proxy.getReason().find("/nowhere"), std::string::npos) << proxy.getReason();
    EXPECT_EQ(proxy.setWindowHandle, nullptr);
    EXPECT_EQ(proxy.setEnabled, nullptr);
    EXPECT_EQ(proxy.setExcludeKey, nullptr);
    EXPECT_EQ(proxy.clearExclude, nullptr);
    EXPECT_EQ(proxy.clearControlKeys, nullptr);
    EXPECT_EQ(proxy.addControlKey, nullptr);
}
}  // namespace KeyboardHook
