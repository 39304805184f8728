#include "backend/values/Fraction.h"

#include <algorithm>

#include "backend/xml/Text.h"

namespace
{
constexpr std::size_t LONGEST_TEXT = 220;

std::int32_t parsePart(std::string_view text)
{
    return std::clamp(Text::parseInteger(text).value_or(1), 1, Fraction::HIGHEST);
}

/// The position of the first separator, of the first kind that the text contains; `npos` for none.
std::size_t findSeparator(std::string_view text)
{
    for (const char separator : {'/', '\\', '_'})
        if (const auto at = text.find(separator); at != std::string_view::npos) return at;
    return std::string_view::npos;
}
}  // namespace

Fraction Fraction::fromXmlString(std::string_view text)
{
    text = text.substr(0, LONGEST_TEXT);
    const auto separator = findSeparator(text);
    if (separator == std::string_view::npos) return {parsePart(text), 1};
    return {parsePart(text.substr(0, separator)), parsePart(text.substr(separator + 1))};
}

std::string Fraction::toXmlString() const { return std::to_string(numerator) + "_" + std::to_string(denominator); }

std::string Fraction::toDisplayString() const { return std::to_string(numerator) + "/" + std::to_string(denominator); }
