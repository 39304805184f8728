#include "backend/values/SelectControlType.h"

#include "backend/xml/Words.h"

namespace
{
using Kind = SelectControlType::Kind;
constexpr auto KINDS = std::to_array<Word<Kind>>({{Kind::up, "up"},
                                                  {Kind::down, "down"},
                                                  {Kind::left, "left"},
                                                  {Kind::right, "right"},
                                                  {Kind::selected, "selected"},
                                                  {Kind::all, "all"}});
}  // namespace

SelectControlType SelectControlType::fromXmlString(std::string_view text)
{
    if (const auto kind = readWord(KINDS, text)) return {*kind, {0, 0}};
    return {Kind::specific, Cell::fromXmlString(text)};
}

std::string SelectControlType::toXmlString() const
{
    if (const auto word = printWord(KINDS, kind)) return std::string(*word);
    return cell.toXmlString();
}
