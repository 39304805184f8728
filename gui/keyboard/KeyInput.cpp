#include "gui/keyboard/KeyInput.h"

#include <QKeyEvent>
#include <chrono>

#include "gui/keyboard/KeyPresses.h"
#include "gui/keyboard/KeyReading.h"
#include "gui/keyboard/SystemKeyboard.h"
#include "keyboardhook/KeyTable.h"

namespace Gui
{
using Source = KeyPresses::Source;

namespace
{
constexpr auto WATCH_INTERVAL = std::chrono::milliseconds(200);
}

KeyInput::KeyInput(KeyPresses& keyPresses) : presses(keyPresses)
{
    SystemKeyboard::makeRepeatsDetectable();
    watch.setInterval(WATCH_INTERVAL);
    QObject::connect(&watch, &QTimer::timeout, [this] { releaseMissedKeys(); });
}

void KeyInput::press(const QKeyEvent& event)
{
    presses.press(Source::window, readKey(event), event.isAutoRepeat());
    if (!watch.isActive()) watch.start();
}

void KeyInput::release(const QKeyEvent& event)
{
    if (!event.isAutoRepeat()) presses.release(Source::window, readKey(event));
}

/// A key pressed just after the focus came is reported as down, too; its event is queued already and is handled before
/// the timer.
void KeyInput::focusGained()
{
    const auto down = SystemKeyboard::getKeysDown();
    if (!down) return;
    QTimer::singleShot(0, &watch, [this, keys = *down] {
        for (std::size_t place = 0; place < keys.size(); ++place)
            if (keys.test(place)) presses.ignoreUntilReleased(KeyTable::virtualKeyAt(static_cast<std::int64_t>(place)));
        watch.start();
    });
}

void KeyInput::focusLost() { presses.releaseAll(Source::window); }

void KeyInput::releaseMissedKeys()
{
    const auto codes = presses.getCodesDown(Source::window);
    const auto down = codes.empty() ? std::nullopt : SystemKeyboard::getKeysDown();
    if (!down) return watch.stop();
    for (const int code : codes) {
        const int place = KeyTable::scanCodeOf(code);
        if (place >= 0 && !down->test(static_cast<std::size_t>(place)))
            presses.release(Source::window, Key{.keyCode = code});
    }
}
}  // namespace Gui
