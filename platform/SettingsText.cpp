#include "platform/SettingsText.h"

#include <charconv>
#include <utility>

namespace
{
constexpr std::string_view STRING = "string:";
constexpr std::string_view NUMBER = "number:";
constexpr std::string_view HEX = "hex:";

// The characters of a text that a line cannot contain.
constexpr std::pair<char, char> ESCAPES[] = {{'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}, {'\0', '0'}};

std::string escape(std::string_view text)
{
    std::string escaped;
    for (const char character : text) {
        char letter = 0;
        for (const auto& [meant, written] : ESCAPES)
            if (character == meant) letter = written;
        if (letter != 0)
            escaped += {'\\', letter};
        else
            escaped += character;
    }
    return escaped;
}

std::optional<std::string> unescape(std::string_view escaped)
{
    std::string text;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        if (escaped[i] != '\\') {
            text += escaped[i];
            continue;
        }
        if (++i == escaped.size()) return std::nullopt;
        bool known = false;
        for (const auto& [meant, written] : ESCAPES) {
            if (escaped[i] != written) continue;
            text += meant;
            known = true;
        }
        if (!known) return std::nullopt;
    }
    return text;
}

/// All of `text` as a number, or none.
template <class Number>
std::optional<Number> parse(std::string_view text, int base)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}
}  // namespace

SettingsText::SettingsText(std::string_view text)
{
    while (!text.empty()) {
        const auto end = text.find('\n');
        std::string_view line = text.substr(0, end);
        while (line.ends_with('\r')) line.remove_suffix(1);
        lines.emplace_back(line);
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
    }
}

std::string SettingsText::print() const
{
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

std::string* SettingsText::findLine(std::string_view name)
{
    const std::string start = std::string(name) + "=";
    for (auto line = lines.rbegin(); line != lines.rend(); ++line)
        if (line->starts_with(start)) return &*line;
    return nullptr;
}

std::optional<std::string_view> SettingsText::find(std::string_view name, std::string_view type) const
{
    const std::string* line = const_cast<SettingsText*>(this)->findLine(name);
    if (line == nullptr) return std::nullopt;
    const std::string_view value = std::string_view(*line).substr(name.size() + 1);
    if (!value.starts_with(type)) return std::nullopt;
    return value.substr(type.size());
}

std::optional<std::string> SettingsText::getString(std::string_view name) const
{
    const auto value = find(name, STRING);
    return value ? unescape(*value) : std::nullopt;
}

std::optional<std::int32_t> SettingsText::getNumber(std::string_view name) const
{
    const auto value = find(name, NUMBER);
    return value ? parse<std::int32_t>(*value, 10) : std::nullopt;
}

std::optional<std::vector<std::uint8_t>> SettingsText::getBytes(std::string_view name) const
{
    const auto value = find(name, HEX);
    if (!value || value->size() % 2 != 0) return std::nullopt;
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < value->size(); i += 2) {
        const auto byte = parse<std::uint8_t>(value->substr(i, 2), 16);
        if (!byte) return std::nullopt;
        bytes.push_back(*byte);
    }
    return bytes;
}

void SettingsText::set(std::string_view name, std::string_view type, const std::string& value)
{
    const std::string line = std::string(name) + "=" + std::string(type) + value;
    if (std::string* old = findLine(name))
        *old = line;
    else
        lines.push_back(line);
}

void SettingsText::setString(std::string_view name, std::string_view text) { set(name, STRING, escape(text)); }

void SettingsText::setNumber(std::string_view name, std::int32_t number) { set(name, NUMBER, std::to_string(number)); }

void SettingsText::setBytes(std::string_view name, std::span<const std::uint8_t> bytes)
{
    constexpr std::string_view DIGITS = "0123456789abcdef";
    std::string hex;
    for (const unsigned byte : bytes) hex += {DIGITS[byte >> 4], DIGITS[byte & 15]};
    set(name, HEX, hex);
}
