#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/Export.h"

/// All text is UTF-8, file names included. These two convert between text and the system's form of a path. Where that
/// is UTF-16, what is not valid becomes U+FFFD, so there is no such file.
#if defined(_WIN32)
ORV_API std::filesystem::path pathOf(std::string_view text);
ORV_API std::string textOf(const std::filesystem::path& path);
#else
inline std::filesystem::path pathOf(std::string_view text) { return {std::u8string(text.begin(), text.end())}; }

inline std::string textOf(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}
#endif
