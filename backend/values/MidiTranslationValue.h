#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "backend/values/OrvMidiMessage.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectType.h"

/// How a translation derives a number, or a selection, from the incoming event. Data bytes count as signed bytes.
struct MidiTranslationValue {
    enum class Kind : std::int32_t {
        up = 0,
        down = 1,
        selected = 2,
        all = 3,
        useD1 = 4,
        useD2 = 5,
        d1Relative = 6,
        d2Relative = 7,
        specific = 8
    };

    Kind kind = Kind::useD2;
    RelativeFixedValue fixed{};  ///< the value when specific; its number is the signed amount when D1 or D2 relative

    /// From "up", "down", "selected", "D1", "D2", "D1 +5", "D2 -5"; anything else is specific, and its first token
    /// says the value. Tokens are cut off at the next blank. No text stands for all.
    static MidiTranslationValue fromXmlString(std::string_view text);
    std::string toXmlString() const;

    /// The number. Only `specific` and `all` can be relative. An amount that leaves 32 bits stops at their end. Up,
    /// down and selected have no number and give the blank setting; ask those for `getSelectType`.
    RelativeFixedValue getValue(const Backend::MidiEngine::MidiMessage& message) const;
    RelativeFixedValue getValue(const Backend::MidiEngine::OrvMidiMessage& message) const
    {
        return getValue(message.getMidiMessage());
    }

    /// The selection; a number counts as that of a specific item.
    SelectType getSelectType(const Backend::MidiEngine::MidiMessage& message) const;
    SelectType getSelectType(const Backend::MidiEngine::OrvMidiMessage& message) const
    {
        return getSelectType(message.getMidiMessage());
    }

    bool operator==(const MidiTranslationValue&) const = default;
};
