#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "backend/values/OrvMidiMessage.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectType.h"

/// How a translation gets a number, or a selection, from the incoming event. Data bytes are signed bytes.
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
    RelativeFixedValue fixed{};  ///< the value if specific; the amount that is added to D1 or D2 if these are relative

    /// From "up", "down", "selected", "D1", "D2", "D1 +5", "D2 -5"; in any other text the first token is a specific
    /// value. Tokens end at a blank. There is no text for all.
    static MidiTranslationValue fromXmlString(std::string_view text);
    std::string toXmlString() const;

    /// The number, limited to 32 bits. Only `specific` and `all` can be relative. Up, down and selected have no number
    /// and give the blank setting; they need `getSelectType`.
    RelativeFixedValue getValue(const Backend::MidiEngine::MidiMessage& message) const;
    RelativeFixedValue getValue(const Backend::MidiEngine::OrvMidiMessage& message) const
    {
        return getValue(message.getMidiMessage());
    }

    /// The selection; a number selects the item of that number.
    SelectType getSelectType(const Backend::MidiEngine::MidiMessage& message) const;
    SelectType getSelectType(const Backend::MidiEngine::OrvMidiMessage& message) const
    {
        return getSelectType(message.getMidiMessage());
    }

    bool operator==(const MidiTranslationValue&) const = default;
};
