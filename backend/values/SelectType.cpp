#include "backend/values/SelectType.h"

#include "backend/xml/Text.h"
#include "backend/xml/Words.h"

namespace
{
using Kind = SelectType::Kind;
constexpr auto KINDS = std::to_array<Word<Kind>>(
    {{Kind::up, "up"}, {Kind::down, "down"}, {Kind::selected, "selected"}, {Kind::all, "all"}});
}  // namespace

SelectType SelectType::fromXmlString(std::string_view text)
{
    if (const auto kind = readWord(KINDS, text)) return {*kind, 0};
    return {Kind::specific, Text::parseInteger(text).value_or(0)};
}

std::string SelectType::toXmlString() const
{
    if (const auto word = printWord(KINDS, kind)) return std::string(*word);
    return std::to_string(value);
}
