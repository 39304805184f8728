#include "keyboardhook/XKeyboard.h"

#include <algorithm>

#include "keyboardhook/XkbForCpp.h"

namespace KeyboardHook
{
namespace
{
/// A held key then repeats as presses without releases in between.
void enableDetectableRepeat(XServer& server)
{
    server.query(xcb_xkb_use_extension, xcb_xkb_use_extension_reply, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    constexpr auto FLAG = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    server.query(xcb_xkb_per_client_flags, xcb_xkb_per_client_flags_reply, XCB_XKB_ID_USE_CORE_KBD, FLAG, FLAG, 0u, 0u,
                 0u);
}
}  // namespace

XKeyboard::XKeyboard(XServer& xServer) : server(xServer) { enableDetectableRepeat(server); }

KeySet XKeyboard::grabKeys(const KeySet& keys)
{
    const KeySet contested = tryGrab(keys, {XCB_MOD_MASK_ANY});
    return contested.none() ? contested : tryGrab(contested, combinations());
}

/// Returns the keys of which no combination was granted.
KeySet XKeyboard::tryGrab(const KeySet& keys, const std::vector<std::uint16_t>& modifiers)
{
    struct GrabRequest {
        std::uint8_t scanCode;
        xcb_void_cookie_t cookie;
    };
    std::vector<GrabRequest> requests;
    for (int key = 0; key < 256; ++key)
        for (const auto combination : modifiers)
            if (keys[key]) {
                const auto scanCode = static_cast<std::uint8_t>(key);
                requests.push_back(
                    {scanCode, xcb_grab_key_checked(server.getConnection(), 0, server.getRoot(), combination, scanCode,
                                                    XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC)});
            }
    KeySet refused = keys;
    for (const auto& [scanCode, cookie] : requests) {
        const XServer::Owned<xcb_generic_error_t> error(xcb_request_check(server.getConnection(), cookie));
        if (!error) refused.reset(scanCode);
    }
    return refused;
}

/// Every combination of the modifiers that have keys on this keyboard, locks included.
std::vector<std::uint16_t> XKeyboard::combinations()
{
    std::vector<std::uint16_t> result{0};
    const auto mapping = server.query(xcb_get_modifier_mapping, xcb_get_modifier_mapping_reply);
    if (!mapping) return result;
    const std::uint8_t* const keys = xcb_get_modifier_mapping_keycodes(mapping.get());
    const int perModifier = mapping->keycodes_per_modifier;
    for (int modifier = 0; modifier < 8; ++modifier) {
        const auto* const first = keys + modifier * perModifier;
        if (std::all_of(first, first + perModifier, [](std::uint8_t key) { return key == 0; })) continue;
        for (std::size_t i = 0, without = result.size(); i < without; ++i)
            result.push_back(static_cast<std::uint16_t>(result[i] | 1 << modifier));
    }
    return result;
}

void XKeyboard::ungrabKeys(const KeySet& keys)
{
    for (int key = 0; key < 256; ++key)
        if (keys[key])
            xcb_ungrab_key(server.getConnection(), static_cast<std::uint8_t>(key), server.getRoot(), XCB_MOD_MASK_ANY);
    xcb_flush(server.getConnection());
}

bool XKeyboard::grabKeyboard()
{
    const auto reply = server.query(xcb_grab_keyboard, xcb_grab_keyboard_reply, 0, server.getRoot(), XCB_CURRENT_TIME,
                                    XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC);
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS) return false;
    // If the press of a grabbed key is waiting, the reply to that one releases the next event.
    if (!server.hasKeyEvent()) proceed();
    return true;
}

void XKeyboard::ungrabKeyboard()
{
    xcb_ungrab_keyboard(server.getConnection(), XCB_CURRENT_TIME);
    xcb_flush(server.getConnection());
}

void XKeyboard::proceed() { allow(XCB_ALLOW_SYNC_KEYBOARD); }

void XKeyboard::replay() { allow(XCB_ALLOW_REPLAY_KEYBOARD); }

void XKeyboard::allow(std::uint8_t mode)
{
    xcb_allow_events(server.getConnection(), mode, XCB_CURRENT_TIME);
    xcb_flush(server.getConnection());
}

KeySet XKeyboard::keysDown()
{
    KeySet down;
    const auto reply = server.query(xcb_query_keymap, xcb_query_keymap_reply);
    for (int key = 0; reply && key < 256; ++key) down[key] = (reply->keys[key / 8] >> (key % 8) & 1) != 0;
    return down;
}
}  // namespace KeyboardHook
