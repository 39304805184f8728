#include "gui/keyboard/SystemKeyboard.h"

#include <xkbcommon/xkbcommon.h>

#include <QGuiApplication>
#include <algorithm>

// Last: they define macros with common names.
#include <X11/XKBlib.h>
#include <X11/keysym.h>

namespace Gui::SystemKeyboard
{
namespace
{
Display* getDisplay()
{
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->display();
}

/// Dead keys, which change the next letter.
struct DeadKey {
    KeySym symbol;
    char16_t sign;
};
constexpr DeadKey DEAD_KEYS[] = {
    {XK_dead_grave, u'`'},          {XK_dead_acute, u'\u00B4'},     {XK_dead_circumflex, u'^'},
    {XK_dead_tilde, u'~'},          {XK_dead_macron, u'\u00AF'},    {XK_dead_breve, u'\u02D8'},
    {XK_dead_diaeresis, u'\u00A8'}, {XK_dead_abovering, u'\u00B0'}, {XK_dead_caron, u'\u02C7'},
    {XK_dead_cedilla, u'\u00B8'},   {XK_dead_ogonek, u'\u02DB'}};

QString signOf(KeySym symbol)
{
    const auto* const dead = std::ranges::find(DEAD_KEYS, symbol, &DeadKey::symbol);
    if (dead != std::end(DEAD_KEYS)) return QString(QChar(dead->sign));
    const char32_t sign = xkb_keysym_to_utf32(static_cast<xkb_keysym_t>(symbol));
    return sign > U' ' ? QString::fromUcs4(&sign, 1) : QString();
}

XkbDescPtr asMap(void* map) { return static_cast<XkbDescPtr>(map); }
}  // namespace

void makeRepeatsDetectable()
{
    if (Display* const display = getDisplay()) XkbSetDetectableAutoRepeat(display, True, nullptr);
}

std::optional<Keys> getKeysDown()
{
    Display* const display = getDisplay();
    if (display == nullptr) return std::nullopt;
    char bytes[32] = {};
    XQueryKeymap(display, bytes);
    Keys down;
    for (std::size_t key = 0; key < down.size(); ++key) down[key] = (bytes[key / 8] >> (key % 8) & 1) != 0;
    return down;
}

Layout::Layout()
{
    Display* const display = getDisplay();
    if (display == nullptr) return;
    map = XkbGetMap(display, XkbKeyTypesMask | XkbKeySymsMask, XkbUseCoreKbd);
    XkbStateRec state{};
    if (XkbGetState(display, XkbUseCoreKbd, &state) == Success) group = state.group;
}

Layout::~Layout()
{
    if (map != nullptr) XkbFreeKeyboard(asMap(map), 0, True);
}

QString Layout::getLabel(int scanCode) const
{
    if (map == nullptr || !XkbKeycodeInRange(asMap(map), scanCode)) return {};
    const int groups = XkbKeyNumGroups(asMap(map), scanCode);
    if (groups == 0) return {};
    const QString sign = signOf(XkbKeySymEntry(asMap(map), scanCode, 0, std::min(group, groups - 1)));
    const QString capital = sign.toUpper();
    return capital.size() == sign.size() ? capital : sign;  // the German sharp s has none
}
}  // namespace Gui::SystemKeyboard
