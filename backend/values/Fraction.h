#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// A ratio of two numbers from 1 to `HIGHEST`.
struct Fraction {
    static constexpr std::int32_t HIGHEST = 99;

    std::int32_t numerator = 1;
    std::int32_t denominator = 1;

    /// From "3/4", "3\4", "3_4", or "3" for 3/1. Each number is limited to its range; a part that is no number gives 1.
    /// Only the first 220 characters are read.
    static Fraction fromXmlString(std::string_view text);

    /// "3_4", which is also valid in a file name.
    std::string toXmlString() const;
    /// "3/4", for the screen.
    std::string toDisplayString() const;

    bool operator==(const Fraction&) const = default;
};
