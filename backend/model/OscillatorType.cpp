#include "backend/model/OscillatorType.h"

#include "backend/xml/Words.h"

namespace Backend::Oscillators
{
namespace
{
using Kind = OscillatorType::Kind;
constexpr auto KINDS = std::to_array<Word<Kind>>(
    {{Kind::sin, "sin"}, {Kind::tri, "tri"}, {Kind::saw, "saw"}, {Kind::pulse, "pulse"}, {Kind::random, "random"}});
}  // namespace

OscillatorType OscillatorType::fromXmlString(std::string_view text)
{
    return {readWord(KINDS, text).value_or(Kind::sin)};
}

std::string OscillatorType::toXmlString() const { return std::string(printWord(KINDS, kind).value_or("sin")); }
}  // namespace Backend::Oscillators
