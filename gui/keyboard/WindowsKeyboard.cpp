#include <windows.h>
#undef DELETE  // an access right there, a key here

#include "backend/values/Key.h"
#include "gui/keyboard/SystemKeyboard.h"
#include "keyboardhook/KeyTable.h"

namespace Gui::SystemKeyboard
{
namespace
{
/// As the system's functions take a scan code: the prefix E0 in the upper byte.
UINT withPrefix(int scanCode)
{
    constexpr int PREFIX_BIT = 0x80;
    const auto code = static_cast<UINT>(scanCode);
    return (scanCode & PREFIX_BIT) != 0 ? 0xE000u | (code & 0x7Fu) : code;
}

bool isDown(UINT virtualKey) { return virtualKey != 0 && GetAsyncKeyState(static_cast<int>(virtualKey)) < 0; }

/// By the system's virtual key of the position. Num Lock and Pause share a scan code there, and a key of the keypad has
/// that of an arrow without Num Lock; the codes of these keys are also the system's.
bool isDown(const KeyTable::Place& place)
{
    if (place.virtualKey == Key::NUM_LOCK || place.virtualKey == Key::PAUSE) return isDown(UINT{place.virtualKey});
    const bool isOnKeypad = place.virtualKey >= Key::NUMPAD_0 && place.virtualKey <= Key::NUMPAD_DIVIDE;
    return (isOnKeypad && isDown(UINT{place.virtualKey})) ||
           isDown(MapVirtualKeyW(withPrefix(place.scanCode), MAPVK_VSC_TO_VK_EX));
}
}  // namespace

// Repeats come as presses.
void makeRepeatsDetectable() {}

std::optional<Keys> getKeysDown()
{
    Keys down;
    for (const auto& place : KeyTable::getPlaces())
        if (isDown(place)) down.set(place.scanCode);
    return down;
}

Layout::Layout() : map(GetKeyboardLayout(0)) {}

Layout::~Layout() = default;

QString Layout::getLabel(int scanCode) const
{
    constexpr UINT KEEPS_DEAD_KEYS = 4;  // a flag of Windows 10
    const auto layout = static_cast<HKL>(map);
    const UINT code = withPrefix(scanCode);
    const UINT key = MapVirtualKeyExW(code, MAPVK_VSC_TO_VK_EX, layout);
    if (scanCode < 0 || key == 0) return {};
    const BYTE noneDown[256] = {};
    wchar_t text[8] = {};
    const int size = ToUnicodeEx(key, code, noneDown, text, 8, KEEPS_DEAD_KEYS, layout);
    if (size == 0 || text[0] <= L' ') return {};
    const QString sign = QString::fromWCharArray(text, size < 0 ? 1 : size);  // below 0 for a dead key
    const QString capital = sign.toUpper();
    return capital.size() == sign.size() ? capital : sign;  // the German sharp s has none
}
}  // namespace Gui::SystemKeyboard
