#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Export.h"

namespace Backend::Oscillators
{
/// The shape of an oscillator's wave.
struct ORV_API OscillatorType {
    enum class Kind : std::int32_t { sin = 0, tri = 1, saw = 2, pulse = 3, random = 4 };

    Kind kind = Kind::sin;

    /// From exactly "sin", "tri", "saw", "pulse" or "random"; any other text is a sine.
    static OscillatorType fromXmlString(std::string_view text);
    std::string toXmlString() const;

    bool operator==(const OscillatorType&) const = default;
};
}  // namespace Backend::Oscillators
