#include "gui/keyboard/KeyPresses.h"

#include <algorithm>

namespace Gui
{
namespace
{
using enum Key::Code;

constexpr bool isShift(int code) { return code == LEFT_SHIFT || code == RIGHT_SHIFT; }
constexpr bool isShiftOrControl(int code) { return isShift(code) || code == LEFT_CONTROL || code == RIGHT_CONTROL; }
}  // namespace

void KeyPresses::press(Source source, const Key& key, bool isRepeat)
{
    if (key.keyCode < 0) return;
    auto found = presses.find(key.keyCode);
    const bool wasDown = found != presses.end();
    if (!wasDown && isRepeat) return;
    if (wasDown && found->second.ignored) return;

    bool Key::*const own = modifierOf(key.keyCode);
    Key played = key;
    if (own != nullptr)
        played.*own = false;
    else
        releaseLostModifiers(source, key);
    if (presses.contains(RIGHT_ALT) && own != &Key::alt) played.alt = true;  // the desktop does not report AltGr as Alt

    const bool isChord = isShift(key.keyCode) && isChordWith(key);
    presses.insert_or_assign(key.keyCode, Press{source, played});
    if (isChord) return;
    listener.showKey(key.keyCode, true);
    listener.keyDown(played, wasDown);
}

/// Whether a key other than Shift and Control is held.
bool KeyPresses::isChordWith(const Key& shift) const
{
    return shift.alt || shift.win ||
           std::ranges::any_of(presses, [](const auto& press) { return !isShiftOrControl(press.first); });
}

bool KeyPresses::isHeld(bool Key::*modifier) const
{
    return std::ranges::any_of(presses, [modifier](const auto& press) { return modifierOf(press.first) == modifier; });
}

/// Releases modifiers that are no longer held: the desktop may have taken their release. Not every desktop reports the
/// right Alt key as held, so that one is left out.
void KeyPresses::releaseLostModifiers(Source source, const Key& held)
{
    for (const auto& [code, modifier] : MODIFIERS_BY_KEY) {
        const auto found = presses.find(code);
        if (found == presses.end() || found->second.source != source || code == RIGHT_ALT || held.*modifier) continue;
        endPress(found, Key{.keyCode = code});
    }
}

void KeyPresses::release(Source source, const Key& key)
{
    const auto found = presses.find(key.keyCode);
    if (found == presses.end() || found->second.source != source) return;
    endPress(found, key);
}

void KeyPresses::endPress(Presses::iterator press, const Key& key)
{
    const Press released = press->second;
    presses.erase(press);
    if (released.ignored) return;
    Key played = key;
    if (bool Key::*const own = modifierOf(key.keyCode)) played.*own = isHeld(own);
    if (presses.contains(RIGHT_ALT)) played.alt = true;
    listener.showKey(key.keyCode, false);
    if (key.keyCode != LEFT_WINDOWS) listener.keyUp(played);
}

void KeyPresses::releaseAll(Source source)
{
    for (const int code : getCodesDown(source)) {
        const auto found = presses.find(code);
        if (found == presses.end() || found->second.source != source) continue;
        const Press released = found->second;
        presses.erase(found);
        if (released.ignored) continue;
        listener.showKey(code, false);
        if (code != LEFT_WINDOWS) listener.keyUp(released.key);
    }
}

void KeyPresses::ignoreUntilReleased(int keyCode)
{
    if (keyCode >= 0) presses.try_emplace(keyCode, Press{Source::window, Key{.keyCode = keyCode}, true});
}

std::vector<int> KeyPresses::getCodesDown(Source source) const
{
    std::vector<int> codes;
    for (const auto& [code, press] : presses)
        if (press.source == source) codes.push_back(code);
    return codes;
}
}  // namespace Gui
