#include "backend/model/ControlType.h"

#include "backend/xml/Text.h"
#include "backend/xml/Words.h"

namespace Backend::Controls
{
namespace
{
using Kind = ControlType::Kind;
constexpr auto KINDS = std::to_array<Word<Kind>>({{Kind::edit, "edit"},
                                                  {Kind::vfader, "vfader"},
                                                  {Kind::hfader, "hfader"},
                                                  {Kind::knob, "knob"},
                                                  {Kind::label, "label"}});
}  // namespace

ControlType ControlType::fromXmlString(std::string_view text)
{
    return {readWord(KINDS, Text::trim(text)).value_or(Kind::none)};
}

std::string ControlType::toXmlString() const { return std::string(printWord(KINDS, kind).value_or("")); }
}  // namespace Backend::Controls
