#include "gui/keyboard/GlobalKeyMessageManager.h"

#include <array>

#include "api/OrvGuiIF.h"
#include "gui/keyboard/KeyPresses.h"
#include "keyboardhook/KeyTable.h"
#include "keyboardhook/KeyboardHookMessages.h"

namespace Gui
{
using KeyboardHook::KeyEvent;
using Source = KeyPresses::Source;

namespace
{
Key keyOf(const KeyEvent& event)
{
    return {.keyCode = KeyTable::virtualKeyAt(event.scanCode),
            .shift = (event.modifiers & KeyboardHook::SHIFT) != 0,
            .control = (event.modifiers & KeyboardHook::CONTROL) != 0,
            .alt = (event.modifiers & KeyboardHook::ALT) != 0,
            .win = (event.modifiers & KeyboardHook::WIN) != 0};
}

void keyDown(OrvGuiIF& gui, Message& message)
{
    const auto event = KeyEvent::fromMessage(message);
    gui.getKeyPresses().press(Source::hook, keyOf(event), event.repeat);
}

void keyUp(OrvGuiIF& gui, Message& message)
{
    gui.getKeyPresses().release(Source::hook, keyOf(KeyEvent::fromMessage(message)));
}

/// Whether keys are captured now.
constexpr Backend::TypedMessage<bool> SWITCHED{KeyboardHook::UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED, "GlobalKeySwitched"};

constexpr auto COMMANDS = std::to_array<Backend::Command<OrvGuiIF>>({
    {KeyboardHook::KEY_DOWN, "KeyDown", &keyDown},
    {KeyboardHook::KEY_UP, "KeyUp", &keyUp},
    Backend::on<SWITCHED, &OrvGuiIF::handleGlobalKeySwitched>(),
});
}  // namespace

GlobalKeyMessageManager::GlobalKeyMessageManager(OrvGuiIF& gui) : TableMessageManager(COMMANDS, gui) {}
}  // namespace Gui
