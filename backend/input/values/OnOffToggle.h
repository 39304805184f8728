#pragma once

#include <cstdint>

/// On, off, or the other of what it is now.
struct OnOffToggle {
    enum class State : std::int32_t { on = 0, off = 1, toggle = 2 };

    State state = State::toggle;

    bool appliedTo(bool current) const { return state == State::toggle ? !current : state == State::on; }

    bool operator==(const OnOffToggle&) const = default;
};
