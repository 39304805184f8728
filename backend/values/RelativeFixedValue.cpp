#include "backend/values/RelativeFixedValue.h"

#include "backend/xml/Text.h"

RelativeFixedValue RelativeFixedValue::fromXmlString(std::string_view text)
{
    text = Text::trim(text);
    const bool relative = text.empty() || text.front() == '+' || text.front() == '-';
    return {relative, Text::parseInteger(text).value_or(0)};
}

std::string RelativeFixedValue::toXmlString() const
{
    if (relative && value == 0) return {};
    return (relative && value > 0 ? "+" : "") + std::to_string(value);
}
