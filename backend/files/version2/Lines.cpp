#include "backend/files/version2/Lines.h"

#include <algorithm>
#include <array>

#include "backend/xml/Text.h"
#include "platform/DbgStream.h"
#include "platform/Utf8.h"

namespace Backend::Version2
{
namespace
{
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

// Windows-1252 from 0x80 to 0x9F. The five that it leaves open are the control characters of Latin 1.
constexpr auto WINDOWS_1252 = std::to_array<std::string_view>(
    {"€",        "\xC2\x81", "‚", "ƒ", "„", "…", "†", "‡", "ˆ", "‰", "Š", "‹", "Œ", "\xC2\x8D", "Ž", "\xC2\x8F",
     "\xC2\x90", "‘",        "’", "“", "”", "•", "–", "—", "˜", "™", "š", "›", "œ", "\xC2\x9D", "ž", "Ÿ"});

std::string fromWindows1252(std::string_view text)
{
    constexpr unsigned FIRST = 0x80;
    constexpr unsigned LATIN = 0xA0;  // from here on the codes are those of Unicode
    std::string converted;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code < FIRST)
            converted += character;
        else if (code < LATIN)
            converted += WINDOWS_1252[code - FIRST];
        else
            (converted += static_cast<char>(0xC0 | code >> 6)) += static_cast<char>(0x80 | (code & 0x3F));
    }
    return converted;
}

bool isControl(char character)
{
    const auto code = static_cast<unsigned char>(character);
    return code < ' ' || code == 0x7F;
}
}  // namespace

Lines::Lines(std::string_view fileName, std::string_view text) : name(fileName)
{
    if (text.starts_with(BYTE_ORDER_MARK)) text.remove_prefix(BYTE_ORDER_MARK.size());
    const std::string converted = isUtf8(text) ? std::string(text) : fromWindows1252(text);
    for (std::size_t begin = 0; begin < converted.size();) {
        const auto end = std::min(converted.find_first_of("\r\n", begin), converted.size());
        std::string line = converted.substr(begin, end - begin);
        for (char& character : line)
            if (isControl(character)) character = ' ';
        lines.emplace_back(Text::trim(line));
        begin = end + (converted.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    }
}

void Lines::passBlankLines()
{
    while (!atEnd() && current().empty()) next();
}

void Lines::passBlock(std::string_view reason)
{
    for (; letter() != 0; next()) report(reason);
}

void Lines::report(std::string_view reason) const
{
    WindowsLib::DbgStream() << name << ", line " << at + 1 << ": left out: " << reason;
}
}  // namespace Backend::Version2
