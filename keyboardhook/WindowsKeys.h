#pragma once

/// The positions of keys by the names of Linux (linux/input-event-codes.h), with the scan codes of Windows (set 1 of
/// the PC keyboard). Bit 7 stands for the prefix E0.
namespace KeyTable
{
inline constexpr int EXTENDED = 0x80;

/// From seven bits and the mark for the prefix, which the system also sets for the right Shift key.
constexpr int scanCodeOf(int code, bool hasPrefix)
{
    constexpr int RIGHT_SHIFT = 0x36;
    return hasPrefix && code != RIGHT_SHIFT ? code | EXTENDED : code;
}

// clang-format off
enum KeyNumber : int {
    KEY_ESC = 0x01, KEY_F1 = 0x3B, KEY_F2 = 0x3C, KEY_F3 = 0x3D, KEY_F4 = 0x3E, KEY_F5 = 0x3F, KEY_F6 = 0x40,
    KEY_F7 = 0x41, KEY_F8 = 0x42, KEY_F9 = 0x43, KEY_F10 = 0x44, KEY_F11 = 0x57, KEY_F12 = 0x58,
    KEY_SYSRQ = 0x37 | EXTENDED, KEY_SCROLLLOCK = 0x46, KEY_PAUSE = 0x45, KEY_GRAVE = 0x29, KEY_1 = 0x02,
    KEY_2 = 0x03, KEY_3 = 0x04, KEY_4 = 0x05, KEY_5 = 0x06, KEY_6 = 0x07, KEY_7 = 0x08, KEY_8 = 0x09, KEY_9 = 0x0A,
    KEY_0 = 0x0B, KEY_MINUS = 0x0C, KEY_EQUAL = 0x0D, KEY_BACKSPACE = 0x0E, KEY_TAB = 0x0F, KEY_Q = 0x10,
    KEY_W = 0x11, KEY_E = 0x12, KEY_R = 0x13, KEY_T = 0x14, KEY_Y = 0x15, KEY_U = 0x16, KEY_I = 0x17, KEY_O = 0x18,
    KEY_P = 0x19, KEY_LEFTBRACE = 0x1A, KEY_RIGHTBRACE = 0x1B, KEY_BACKSLASH = 0x2B, KEY_CAPSLOCK = 0x3A,
    KEY_A = 0x1E, KEY_S = 0x1F, KEY_D = 0x20, KEY_F = 0x21, KEY_G = 0x22, KEY_H = 0x23, KEY_J = 0x24, KEY_K = 0x25,
    KEY_L = 0x26, KEY_SEMICOLON = 0x27, KEY_APOSTROPHE = 0x28, KEY_ENTER = 0x1C, KEY_LEFTSHIFT = 0x2A,
    KEY_102ND = 0x56, KEY_Z = 0x2C, KEY_X = 0x2D, KEY_C = 0x2E, KEY_V = 0x2F, KEY_B = 0x30, KEY_N = 0x31,
    KEY_M = 0x32, KEY_COMMA = 0x33, KEY_DOT = 0x34, KEY_SLASH = 0x35, KEY_RIGHTSHIFT = 0x36, KEY_LEFTCTRL = 0x1D,
    KEY_LEFTMETA = 0x5B | EXTENDED, KEY_LEFTALT = 0x38, KEY_SPACE = 0x39, KEY_RIGHTALT = 0x38 | EXTENDED,
    KEY_RIGHTMETA = 0x5C | EXTENDED, KEY_COMPOSE = 0x5D | EXTENDED, KEY_RIGHTCTRL = 0x1D | EXTENDED,
    KEY_INSERT = 0x52 | EXTENDED, KEY_HOME = 0x47 | EXTENDED, KEY_PAGEUP = 0x49 | EXTENDED,
    KEY_DELETE = 0x53 | EXTENDED, KEY_END = 0x4F | EXTENDED, KEY_PAGEDOWN = 0x51 | EXTENDED,
    KEY_UP = 0x48 | EXTENDED, KEY_LEFT = 0x4B | EXTENDED, KEY_DOWN = 0x50 | EXTENDED, KEY_RIGHT = 0x4D | EXTENDED,
    KEY_NUMLOCK = 0x45 | EXTENDED, KEY_KPSLASH = 0x35 | EXTENDED, KEY_KPASTERISK = 0x37, KEY_KPMINUS = 0x4A,
    KEY_KP7 = 0x47, KEY_KP8 = 0x48, KEY_KP9 = 0x49, KEY_KPPLUS = 0x4E, KEY_KP4 = 0x4B, KEY_KP5 = 0x4C,
    KEY_KP6 = 0x4D, KEY_KP1 = 0x4F, KEY_KP2 = 0x50, KEY_KP3 = 0x51, KEY_KPENTER = 0x1C | EXTENDED, KEY_KP0 = 0x52,
    KEY_KPDOT = 0x53,
};
// clang-format on
}  // namespace KeyTable
