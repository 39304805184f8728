#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// All text is UTF-8, file names included. These two convert between text and the system's form of a path.
inline std::filesystem::path pathOf(std::string_view text) { return {std::u8string(text.begin(), text.end())}; }

inline std::string textOf(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}
