#include "backend/values/OnOffToggle.h"

#include "backend/xml/Words.h"

namespace
{
using State = OnOffToggle::State;
constexpr auto STATES = std::to_array<Word<State>>({{State::on, "on"}, {State::off, "off"}, {State::toggle, "toggle"}});
}  // namespace

OnOffToggle OnOffToggle::fromXmlString(std::string_view text)
{
    return {readWord(STATES, text).value_or(State::toggle)};
}

std::string OnOffToggle::toXmlString() const { return std::string(printWord(STATES, state).value_or("toggle")); }
