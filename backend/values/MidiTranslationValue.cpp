#include "backend/values/MidiTranslationValue.h"

#include <algorithm>
#include <limits>

#include "backend/xml/Text.h"
#include "backend/xml/Words.h"

namespace
{
using Kind = MidiTranslationValue::Kind;

constexpr auto KINDS = std::to_array<Word<Kind>>(
    {{Kind::up, "up"}, {Kind::down, "down"}, {Kind::selected, "selected"}, {Kind::useD1, "D1"}, {Kind::useD2, "D2"}});

RelativeFixedValue add(std::uint8_t data, std::int32_t amount)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const auto sum = std::int64_t{static_cast<std::int8_t>(data)} + amount;
    return {false, static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, Limits::min(), Limits::max()))};
}

std::string printRelative(std::string_view data, std::int32_t amount)
{
    return std::string(data) + (amount >= 0 ? " +" : " ") + std::to_string(amount);
}
}  // namespace

MidiTranslationValue MidiTranslationValue::fromXmlString(std::string_view text)
{
    text = Text::trim(text);
    const auto token = Text::nextToken(text, ' ');
    const auto kind = readWord(KINDS, token);
    if (!kind) return {Kind::specific, RelativeFixedValue::fromXmlString(token)};
    if (*kind != Kind::useD1 && *kind != Kind::useD2) return {*kind, {}};

    const auto amount = Text::nextToken(text, ' ');
    if (amount.empty()) return {*kind, {}};
    return {*kind == Kind::useD1 ? Kind::d1Relative : Kind::d2Relative,
            {false, Text::parseInteger(amount).value_or(0)}};
}

std::string MidiTranslationValue::toXmlString() const
{
    if (const auto word = printWord(KINDS, kind)) return std::string(*word);
    if (kind == Kind::d1Relative) return printRelative("D1", fixed.value);
    if (kind == Kind::d2Relative) return printRelative("D2", fixed.value);
    return fixed.toXmlString();
}

RelativeFixedValue MidiTranslationValue::getValue(const Backend::MidiEngine::MidiMessage& message) const
{
    switch (kind) {
        case Kind::useD1:
            return add(message.getD1(), 0);
        case Kind::useD2:
            return add(message.getD2(), 0);
        case Kind::d1Relative:
            return add(message.getD1(), fixed.value);
        case Kind::d2Relative:
            return add(message.getD2(), fixed.value);
        case Kind::specific:
        case Kind::all:
            return fixed;
        case Kind::up:
        case Kind::down:
        case Kind::selected:
            break;
    }
    return {true, 0};
}

SelectType MidiTranslationValue::getSelectType(const Backend::MidiEngine::MidiMessage& message) const
{
    switch (kind) {
        case Kind::up:
            return {SelectType::Kind::up, 0};
        case Kind::down:
            return {SelectType::Kind::down, 0};
        case Kind::selected:
            return {SelectType::Kind::selected, 0};
        case Kind::all:
            return {SelectType::Kind::all, 0};
        default:
            return {SelectType::Kind::specific, getValue(message).value};
    }
}
