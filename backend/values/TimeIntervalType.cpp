#include "backend/values/TimeIntervalType.h"

#include "backend/xml/Words.h"

namespace
{
using Kind = TimeIntervalType::Kind;
constexpr auto KINDS = std::to_array<Word<Kind>>({{Kind::noteInterval, "noteInterval"}, {Kind::ppq, "ppq"}});
}  // namespace

TimeIntervalType TimeIntervalType::fromXmlString(std::string_view text)
{
    return {readWord(KINDS, text).value_or(Kind::noteInterval)};
}

std::string TimeIntervalType::toXmlString() const
{
    return std::string(printWord(KINDS, kind).value_or("noteInterval"));
}
