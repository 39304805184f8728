#include <windows.h>

#include <bitset>
#include <condition_variable>
#include <cstdlib>
#include <functional>
#include <string>

#include "keyboardhook/KeyTable.h"
#include "keyboardhook/KeyboardHook.h"
#include "keyboardhook/KeyboardHookMessages.h"
#include "keyboardhook/WindowsKeys.h"
#include "platform/Mutex.h"
#include "platform/WindowHandle.h"

// A low-level keyboard hook gets each key event before any window does; what it keeps reaches no window. The system
// calls it on the thread that installed it, which therefore does nothing else, and removes it when that thread or the
// process ends.
namespace
{
using namespace KeyboardHook;
using KeySet = std::bitset<256>;  // by scan code

constexpr UINT APPLY = WM_APP;

struct Settings {
    bool enabled = false;
    KeySet excluded;
    KeySet controlKeys;
    WindowHandle window;

    bool needsHook() const { return enabled || controlKeys.any(); }
};

/// The keys on the hook's thread, with its own copy of the settings.
class Capture
{
public:
    /// Which modifiers are down.
    void begin();
    void apply(const Settings& newSettings);

    /// Whether the event is kept from all windows.
    bool handle(const KBDLLHOOKSTRUCT& event, const std::function<void()>& controlKeyPressed);

    /// Another window has the focus, or the desktop of another user or of the system is shown.
    void focusMoved();
    void desktopChanged() { releaseAll(); }

    void releaseAll();

private:
    bool captures(std::size_t key) const;
    bool press(std::size_t key);
    void post(Number number, std::size_t key, bool repeat = false) const;
    static bool hasFocus();

    Settings settings;
    KeySet down;  // posted as down
    KeySet left;  // went down for another window
    KeySet controlsDown;
    KeySet physicallyDown;
};

constexpr std::pair<int, Modifiers> MODIFIERS[] = {
    {KeyTable::KEY_LEFTSHIFT, SHIFT},   {KeyTable::KEY_RIGHTSHIFT, SHIFT}, {KeyTable::KEY_LEFTCTRL, CONTROL},
    {KeyTable::KEY_RIGHTCTRL, CONTROL}, {KeyTable::KEY_LEFTALT, ALT},      {KeyTable::KEY_RIGHTALT, ALT},
    {KeyTable::KEY_LEFTMETA, WIN},      {KeyTable::KEY_RIGHTMETA, WIN}};

void Capture::begin()
{
    constexpr std::pair<int, int> KEYS[] = {
        {VK_LSHIFT, KeyTable::KEY_LEFTSHIFT},  {VK_RSHIFT, KeyTable::KEY_RIGHTSHIFT},
        {VK_LCONTROL, KeyTable::KEY_LEFTCTRL}, {VK_RCONTROL, KeyTable::KEY_RIGHTCTRL},
        {VK_LMENU, KeyTable::KEY_LEFTALT},     {VK_RMENU, KeyTable::KEY_RIGHTALT},
        {VK_LWIN, KeyTable::KEY_LEFTMETA},     {VK_RWIN, KeyTable::KEY_RIGHTMETA}};
    for (const auto& [virtualKey, key] : KEYS)
        if (GetAsyncKeyState(virtualKey) < 0) {
            physicallyDown.set(static_cast<std::size_t>(key));
            left.set(static_cast<std::size_t>(key));
        }
}

void Capture::apply(const Settings& newSettings)
{
    const WindowHandle before = settings.window;
    settings.enabled = newSettings.enabled;
    settings.excluded = newSettings.excluded;
    settings.controlKeys = newSettings.controlKeys;
    if (!settings.enabled) releaseAll();  // to the window that has them
    settings.window = newSettings.window;
}

/// A window of this process gets its keys itself.
bool Capture::hasFocus()
{
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    return process == GetCurrentProcessId();
}

/// All that is pressed while a captured key is held is captured, too.
bool Capture::captures(std::size_t key) const
{
    return settings.enabled && (down.any() || (!settings.excluded[key] && !hasFocus()));
}

bool Capture::handle(const KBDLLHOOKSTRUCT& event, const std::function<void()>& controlKeyPressed)
{
    constexpr DWORD LARGEST = 0x7F;  // the left Control that Alt Gr sends before itself has another one
    if (event.scanCode > LARGEST) return captures(KeyTable::KEY_RIGHTALT);
    const auto key = static_cast<std::size_t>(
        KeyTable::scanCodeOf(static_cast<int>(event.scanCode), (event.flags & LLKHF_EXTENDED) != 0));
    const bool isUp = (event.flags & LLKHF_UP) != 0;
    physicallyDown.set(key, !isUp);
    if (settings.controlKeys[key] || controlsDown[key]) {
        if (!isUp && !controlsDown[key]) controlKeyPressed();
        controlsDown.set(key, !isUp);
        return true;
    }
    if (!isUp) return press(key);
    left.reset(key);
    if (!down[key]) return false;
    down.reset(key);
    post(KEY_UP, key);
    return true;
}

bool Capture::press(std::size_t key)
{
    if (left[key]) return false;
    if (!down[key] && !captures(key)) {
        left.set(key);
        return false;
    }
    post(KEY_DOWN, key, down[key]);
    down.set(key);
    return true;
}

void Capture::focusMoved()
{
    if (hasFocus()) releaseAll();
}

void Capture::releaseAll()
{
    for (std::size_t key = 0; key < down.size(); ++key) {
        if (!down[key]) continue;
        down.reset(key);
        left.set(key);
        post(KEY_UP, key);
    }
}

void Capture::post(Number number, std::size_t key, bool repeat) const
{
    KeyEvent event{.scanCode = static_cast<std::uint8_t>(key), .modifiers = 0, .repeat = repeat};
    for (const auto& [modifier, bit] : MODIFIERS)
        if (physicallyDown[static_cast<std::size_t>(modifier)]) event.modifiers |= bit;
    if (settings.window) settings.window.post(event.toMessage(number));
}

/// The hook and its thread, which runs while there is something to capture.
class Hook
{
public:
    /// An empty text on success, else one line.
    std::string change(const std::function<void(Settings&)>& howTo);

private:
    static DWORD WINAPI runThread(void* self);
    static LRESULT CALLBACK onKey(int code, WPARAM message, LPARAM event);
    static void CALLBACK onFocus(HWINEVENTHOOK, DWORD event, HWND, LONG, LONG, DWORD, DWORD);

    bool start();
    void run();
    void apply();
    void toggle();

    Mutex calls;  // held by `change` from its start to its end
    Mutex shared;
    Settings settings;  // and what follows: guarded by `shared`
    std::uint64_t requested = 0;
    std::uint64_t applied = 0;
    DWORD threadId = 0;  // 0 while there is no thread
    DWORD refusal = 0;   // the error of the system
    std::condition_variable_any progress;

    Capture capture;  // of the thread
};

Hook& hook()
{
    static Hook* const theHook = new Hook;  // the thread may still run when the library's objects are destroyed
    return *theHook;
}

std::string Hook::change(const std::function<void(Settings&)>& howTo)
{
    const MutexLock call(calls);
    MutexLock lock(shared);
    howTo(settings);
    if (threadId == 0 && !settings.needsHook()) return "";
    const std::uint64_t mine = ++requested;
    if (threadId == 0 && !start()) return "Global keys are not taken: no thread can be started.";
    PostThreadMessageW(threadId, APPLY, 0, 0);
    progress.wait(lock, [&] { return applied >= mine || threadId == 0; });
    if (threadId != 0 || !settings.needsHook()) return "";
    return "Global keys are not taken: Windows refuses it (error " + std::to_string(refusal) + ").";
}

/// The thread keeps the library in memory. It has a queue for messages when this returns.
bool Hook::start()
{
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<const wchar_t*>(&runThread), &library);
    const HANDLE thread = CreateThread(nullptr, 0, runThread, this, CREATE_SUSPENDED, &threadId);
    if (thread == nullptr) {
        threadId = 0;
        FreeLibrary(library);
        return false;
    }
    SetThreadPriority(thread, THREAD_PRIORITY_HIGHEST);
    ResumeThread(thread);
    CloseHandle(thread);
    return true;
}

DWORD WINAPI Hook::runThread(void* self)
{
    static_cast<Hook*>(self)->run();
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&runThread), &library);
    FreeLibraryAndExitThread(library, 0);
}

void Hook::run()
{
    MSG message;
    PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);  // makes the queue
    const HMODULE library = GetModuleHandleW(L"KeyboardHook_32");
    const HHOOK keys = SetWindowsHookExW(WH_KEYBOARD_LL, onKey, library, 0);
    const DWORD error = GetLastError();
    const HWINEVENTHOOK focus = SetWinEventHook(EVENT_SYSTEM_FOREGROUND, EVENT_SYSTEM_FOREGROUND, nullptr, onFocus, 0,
                                                0, WINEVENT_OUTOFCONTEXT);
    const HWINEVENTHOOK desktop = SetWinEventHook(EVENT_SYSTEM_DESKTOPSWITCH, EVENT_SYSTEM_DESKTOPSWITCH, nullptr,
                                                  onFocus, 0, 0, WINEVENT_OUTOFCONTEXT);
    capture.begin();
    for (bool isNeeded = keys != nullptr; isNeeded;) {
        apply();
        {
            const MutexLock lock(shared);
            isNeeded = settings.needsHook() || applied < requested;
            if (!isNeeded) threadId = 0;
        }
        if (isNeeded && GetMessageW(&message, nullptr, 0, 0) <= 0) break;
    }
    if (keys != nullptr) UnhookWindowsHookEx(keys);
    UnhookWinEvent(focus);
    UnhookWinEvent(desktop);
    const MutexLock lock(shared);
    if (keys == nullptr) {
        refusal = error;
        threadId = 0;
    }
    progress.notify_all();
}

void Hook::apply()
{
    const MutexLock lock(shared);
    capture.apply(settings);
    applied = requested;
    progress.notify_all();
}

void Hook::toggle()
{
    const MutexLock lock(shared);
    settings.enabled = !settings.enabled;
    capture.apply(settings);
    if (settings.window)
        settings.window.post(
            {.number = UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED, .wparam = settings.enabled ? 1u : 0u, .lparam = 0});
}

LRESULT CALLBACK Hook::onKey(int code, WPARAM message, LPARAM event)
{
    Hook& self = hook();
    const auto& key = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(event);
    if (code == HC_ACTION && self.capture.handle(key, [&] { self.toggle(); })) return 1;
    return CallNextHookEx(nullptr, code, message, event);
}

void CALLBACK Hook::onFocus(HWINEVENTHOOK, DWORD event, HWND, LONG, LONG, DWORD, DWORD)
{
    Capture& capture = hook().capture;
    event == EVENT_SYSTEM_FOREGROUND ? capture.focusMoved() : capture.desktopChanged();
}

void add(KeySet Settings::*keys, std::int32_t virtualKey)
{
    const int scanCode = KeyTable::scanCodeOf(virtualKey);
    if (scanCode < 0) return;
    hook().change([=](Settings& settings) { (settings.*keys).set(static_cast<std::size_t>(scanCode)); });
}
}  // namespace

void setWindowHandle(const WindowHandle* window)
{
    hook().change([=](Settings& settings) { settings.window = window != nullptr ? *window : WindowHandle(); });
}

const char* setEnabled(int on)
{
    static std::string reason;
    reason = hook().change([=](Settings& settings) { settings.enabled = on != 0; });
    return on == 0 || reason.empty() ? nullptr : reason.c_str();
}

void setExcludeKey(std::int32_t virtualKey) { add(&Settings::excluded, virtualKey); }

void clearExclude()
{
    hook().change([](Settings& settings) { settings.excluded.reset(); });
}

void addControlKey(std::int32_t virtualKey) { add(&Settings::controlKeys, virtualKey); }

void clearControlKeys()
{
    hook().change([](Settings& settings) { settings.controlKeys.reset(); });
}
