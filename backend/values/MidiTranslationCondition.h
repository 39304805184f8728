#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "backend/values/OrvMidiMessage.h"

/// A condition on an incoming event: compares one of its data bytes, as a signed byte, with a number.
struct MidiTranslationCondition {
    enum class Operand : std::int32_t { off = 0, d1 = 1, d2 = 2 };
    enum class Comparison : std::int32_t { lt = 0, gt = 1, le = 2, ge = 3, eq = 4, ne = 5 };

    Operand operand = Operand::off;  ///< off: true for every event
    Comparison comparison = Comparison::gt;
    std::int32_t value = 0;

    /// From "Off" or "D1 ge 64": three tokens, each ended by a blank. Unknown tokens count as off, eq and 0.
    static MidiTranslationCondition fromXmlString(std::string_view text);

    /// "Off" alone, or the three tokens.
    std::string toXmlString() const;

    bool isTrue(const Backend::MidiEngine::MidiMessage& message) const;
    bool isTrue(const Backend::MidiEngine::OrvMidiMessage& message) const { return isTrue(message.getMidiMessage()); }

    bool operator==(const MidiTranslationCondition&) const = default;
};
