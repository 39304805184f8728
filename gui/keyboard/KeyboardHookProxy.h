#pragma once

#include <cstdint>
#include <string>

class WindowHandle;

namespace Gui
{
/// The global keyboard, if its library is there: it is loaded here and unloaded when this goes, which gives every key
/// back. Without it, or without one of its functions, the pointers concerned are null and that is all; whoever calls
/// one tests it first. What the functions do is said in keyboardhook/KeyboardHook.h. Any thread.
class KeyboardHookProxy
{
    void* library = nullptr;

public:
    void (*setWindowHandle)(const WindowHandle* window) = nullptr;
    const char* (*setEnabled)(int on) = nullptr;
    void (*setExcludeKey)(std::int32_t virtualKey) = nullptr;
    void (*clearExclude)() = nullptr;
    void (*clearControlKeys)() = nullptr;
    void (*addControlKey)(std::int32_t virtualKey) = nullptr;

    /// Loads the library from `folder`, which is the main library's: `getModuleFolder`.
    explicit KeyboardHookProxy(const std::string& folder);
    ~KeyboardHookProxy();

    KeyboardHookProxy(const KeyboardHookProxy&) = delete;
    KeyboardHookProxy& operator=(const KeyboardHookProxy&) = delete;

    /// One line that says why something is missing; empty if nothing is. The debug stream has it too.
    const std::string& getReason() const { return reason; }

private:
    template <class Function>
    void find(Function*& function, const char* name);

    std::string reason;
};
}  // namespace Gui
