#pragma once

#include <cstdint>
#include <string>

class WindowHandle;

namespace Gui
{
/// The library of the global keyboard: loaded by the constructor and unloaded by the destructor, which releases every
/// key. A function that is missing, or all of them if the library is, is a null pointer; callers test it. The functions
/// are documented in keyboardhook/KeyboardHook.h. Any thread.
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

    /// Loads the library from `folder`, see `getModuleFolder`.
    explicit KeyboardHookProxy(const std::string& folder);
    ~KeyboardHookProxy();

    KeyboardHookProxy(const KeyboardHookProxy&) = delete;
    KeyboardHookProxy& operator=(const KeyboardHookProxy&) = delete;

    /// One line that says why something is missing; empty if nothing is. It is written to the debug stream, too.
    const std::string& getReason() const { return reason; }

private:
    template <class Function>
    void find(Function*& function, const char* name);

    std::string reason;
};
}  // namespace Gui
