#include "backend/values/Key.h"

#include "backend/values/KeyNames.h"

namespace
{
struct Modifier {
    bool Key::*held;
    std::string_view prefix;
};

// In the order in which they precede a name.
constexpr Modifier MODIFIERS[] = {
    {&Key::shift, "Shift "}, {&Key::control, "Control "}, {&Key::alt, "Alt "}, {&Key::win, "Win "}};
}  // namespace

Key Key::fromXmlString(std::string_view text)
{
    Key key;
    for (const auto& [held, prefix] : MODIFIERS) {
        key.*held = text.starts_with(prefix);
        if (key.*held) text.remove_prefix(prefix.size());
    }
    key.keyCode = readKeyName(text).value_or(-1);
    return key;
}

std::string Key::toXmlString() const
{
    std::string text;
    for (const auto& [held, prefix] : MODIFIERS)
        if (this->*held) text += prefix;
    return text += printKeyName(keyCode).value_or("Unknown");
}

Key Key::fromLegacyCode(std::int32_t code)
{
    if (code >= 900) return {.keyCode = code - 900, .shift = true, .control = true};
    if (code >= 600) return {.keyCode = code - 600, .control = true};
    if (code >= 300) return {.keyCode = code - 300, .shift = true};
    return {.keyCode = code};
}

Key Key::fromPacked(std::uint32_t packed)
{
    return {static_cast<std::int32_t>(packed & 0xFF), (packed & 0x100) != 0, (packed & 0x200) != 0,
            (packed & 0x400) != 0, (packed & 0x800) != 0};
}
