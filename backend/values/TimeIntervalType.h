#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// How a length of time is given: by the name of a note length, or in pulses.
struct TimeIntervalType {
    enum class Kind : std::int32_t { noteInterval = 0, ppq = 1 };

    Kind kind = Kind::noteInterval;

    /// From exactly "ppq"; any other text is a note interval.
    static TimeIntervalType fromXmlString(std::string_view text);
    std::string toXmlString() const;

    bool operator==(const TimeIntervalType&) const = default;
};
