#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

/// The events of a saved record's bytes as text, "ticks:bytes" each, blanks between: "2:90.3C.64 1400:F7.1.FA". What
/// is no such file is "not a record's file". Written without a look at how the recorder writes.
inline std::string readRecord(const std::string& file)
{
    const std::string WRONG = "not a record's file";
    const std::string HEADER("MThd\0\0\0\6\0\0\0\1\0\x60MTrk", 18);
    if (!file.starts_with(HEADER) || file.size() < 30) return WRONG;
    std::size_t at = 18;
    const auto byte = [&] { return at < file.size() ? static_cast<std::uint8_t>(file[at++]) : std::uint8_t{0}; };
    std::size_t length = 0;
    for (int i = 0; i < 4; ++i) length = length << 8 | byte();
    if (length != file.size() - at || !file.ends_with(std::string("\0\xB0\x78\0\0\xFF\x2F\0", 8))) return WRONG;
    std::string text;
    while (at < file.size() - 8) {
        unsigned ticks = 0;
        std::uint8_t next = 0;
        do ticks = ticks << 7 | ((next = byte()) & 0x7F);
        while (next >= 0x80);
        const std::uint8_t status = byte();
        char digits[16];
        std::snprintf(digits, sizeof digits, "%u:%02X", ticks, status);
        text += (text.empty() ? "" : " ") + std::string(digits);
        for (int size = status == 0xF7 ? byte() : (status & 0xE0) == 0xC0 ? 1 : 2; size > 0; --size) {
            std::snprintf(digits, sizeof digits, ".%02X", byte());
            text += digits;
        }
        if (status < 0x80 || status == 0xF0 || status == 0xFF || at > file.size() - 8) return WRONG;
    }
    return text;
}
