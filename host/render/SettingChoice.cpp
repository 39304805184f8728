#include "host/render/SettingChoice.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "api/SettingInfo.h"
#include "host/common/InputError.h"

namespace Host
{
namespace
{
using Backend::SettingInfo;
using Kind = SettingInfo::Kind;

std::optional<std::int32_t> parseNumber(std::string_view text)
{
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// Four numbers as the sixteen bytes that are stored, each number's lowest byte first.
std::optional<std::vector<std::uint8_t>> parseRectangle(std::string_view text)
{
    std::vector<std::uint8_t> bytes;
    for (int side = 0; side < 4; ++side) {
        const auto comma = text.find(',');
        const auto number = parseNumber(text.substr(0, comma));
        if (!number || (side < 3) != (comma != std::string_view::npos)) return std::nullopt;
        text.remove_prefix(side < 3 ? comma + 1 : 0);
        for (int shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<std::uint8_t>(static_cast<std::uint32_t>(*number) >> shift));
    }
    return bytes;
}

/// False if the value is not of the kind.
bool store(SettingsStore& settings, const SettingInfo& setting, const std::string& value)
{
    const auto number = parseNumber(value);
    const auto rectangle = parseRectangle(value);
    switch (setting.kind) {
        case Kind::text:
            settings.setString(setting.name, value);
            return true;
        case Kind::onOff:
            if (number) settings.setNumber(setting.name, *number);
            return number == 0 || number == 1;
        case Kind::number:
            if (number) settings.setNumber(setting.name, *number);
            return number.has_value();
        case Kind::rectangle:
            if (rectangle) settings.setBytes(setting.name, *rectangle);
            return rectangle.has_value();
    }
    return false;
}

const char* expected(Kind kind)
{
    switch (kind) {
        case Kind::onOff:
            return "0 or 1";
        case Kind::number:
            return "a number";
        case Kind::rectangle:
            return "left,top,right,bottom";
        case Kind::text:
            break;
    }
    return "a text";
}
}  // namespace

void storeChoice(SettingsStore& settings, const std::string& choice)
{
    const auto equals = choice.find('=');
    const std::string name = choice.substr(0, equals);
    if (equals == std::string::npos) throw InputError("--set " + choice + ": NAME=VALUE expected");
    const auto table = SettingInfo::getTable();
    const auto setting = std::ranges::find(table, name, &SettingInfo::name);
    if (setting == table.end()) throw InputError("--set " + choice + ": there is no setting " + name);
    if (!store(settings, *setting, choice.substr(equals + 1)))
        throw InputError("--set " + choice + ": " + expected(setting->kind) + " expected");
}
}  // namespace Host
