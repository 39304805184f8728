#include "backend/files/version2/Lines.h"

#include <algorithm>

#include "backend/xml/Text.h"
#include "platform/DbgStream.h"
#include "platform/Utf8.h"

namespace Backend::Version2
{
namespace
{
std::string fromLatin1(std::string_view text)
{
    std::string converted;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code >= 0x80) converted += static_cast<char>(code < 0xC0 ? 0xC2 : 0xC3);
        converted += static_cast<char>(code < 0xC0 ? code : code - 0x40);
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
    const std::string converted = isUtf8(text) ? std::string(text) : fromLatin1(text);
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

void Lines::tell(std::string_view reason) const
{
    WindowsLib::DbgStream() << name << ", line " << at + 1 << ": passed over: " << reason;
}
}  // namespace Backend::Version2
