#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// On, off, or toggle: the opposite of the present state.
struct OnOffToggle {
    enum class State : std::int32_t { on = 0, off = 1, toggle = 2 };

    State state = State::toggle;

    /// From exactly "on" or "off"; any other text is toggle.
    static OnOffToggle fromXmlString(std::string_view text);
    std::string toXmlString() const;

    bool appliedTo(bool current) const { return state == State::toggle ? !current : state == State::on; }

    bool operator==(const OnOffToggle&) const = default;
};
