#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "backend/values/Key.h"
#include "keyboardhook/KeyTable.h"

/// The name of a key, with those of the modifiers in front.
inline std::string nameOf(std::uint8_t scanCode, std::uint8_t modifiers = 0)
{
    const auto code = static_cast<std::uint32_t>(KeyTable::virtualKeyAt(scanCode));
    return Key::fromPacked(code | std::uint32_t{modifiers} << 8).toXmlString();
}

inline std::uint8_t scanCodeOf(const std::string& key)
{
    for (const auto& place : KeyTable::getPlaces())
        if (nameOf(place.scanCode) == key) return place.scanCode;
    throw std::invalid_argument(key);
}

/// The keys of a text: "Q<W<Q>W>" where Q and W go down before both come up.
inline void forEachKey(const std::string& keys, const std::function<void(std::uint8_t scanCode, bool isDown)>& use)
{
    for (std::size_t start = 0, end; (end = keys.find_first_of("<>", start)) != std::string::npos; start = end + 1)
        use(scanCodeOf(keys.substr(start, end - start)), keys[end] == '<');
}
