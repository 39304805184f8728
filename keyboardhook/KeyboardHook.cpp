#include "keyboardhook/KeyboardHook.h"

#include <cstdlib>
#include <string_view>

#include "keyboardhook/HookThread.h"
#include "keyboardhook/KeyTable.h"

namespace
{
using KeyboardHook::HookSettings;

KeyboardHook::HookThread& hook()
{
    static KeyboardHook::HookThread theHook;
    return theHook;
}

bool isSet(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

const char* whyNone()
{
    if (isSet("WAYLAND_DISPLAY")) return "Global keys need an X server; this desktop (Wayland) gives none.";
    if (!isSet("DISPLAY")) return "Global keys need an X server; there is none.";
    return "Global keys need an X server; the one of DISPLAY cannot be reached.";
}

const char* whyNotAll()
{
    const char* const session = std::getenv("XDG_SESSION_TYPE");
    const bool isWayland = isSet("WAYLAND_DISPLAY") && session != nullptr && session == std::string_view("wayland");
    return isWayland ? "On this desktop (Wayland) global keys are taken only from programs that use X." : nullptr;
}

void add(KeyboardHook::KeySet HookSettings::*keys, std::int32_t virtualKey)
{
    const int scanCode = KeyTable::scanCodeOf(virtualKey);
    if (scanCode < 0) return;
    hook().change([=](HookSettings& settings) { (settings.*keys).set(static_cast<std::size_t>(scanCode)); });
}

void clear(KeyboardHook::KeySet HookSettings::*keys)
{
    hook().change([=](HookSettings& settings) { (settings.*keys).reset(); });
}
}  // namespace

void setWindowHandle(const WindowHandle* window)
{
    hook().change([=](HookSettings& settings) { settings.window = window != nullptr ? *window : WindowHandle(); });
}

const char* setEnabled(int on)
{
    const bool holds = hook().change([=](HookSettings& settings) { settings.enabled = on != 0; });
    if (on == 0) return nullptr;
    return holds ? whyNotAll() : whyNone();
}

void setExcludeKey(std::int32_t virtualKey) { add(&HookSettings::excluded, virtualKey); }

void clearExclude() { clear(&HookSettings::excluded); }

void addControlKey(std::int32_t virtualKey) { add(&HookSettings::controlKeys, virtualKey); }

void clearControlKeys() { clear(&HookSettings::controlKeys); }
