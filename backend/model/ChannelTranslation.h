#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
/// The channel of a translated event: its own, that of the layers, or a fixed one.
struct ORV_API ChannelTranslation {
    static constexpr std::int32_t UNCHANGED = -2;
    static constexpr std::int32_t DEFAULT = -1;

    std::int32_t channel = DEFAULT;  ///< UNCHANGED, DEFAULT, or 0 to 15; other numbers count as DEFAULT

    /// From "unchanged", "default" or a number; any other text is the default.
    static ChannelTranslation fromXmlString(std::string_view text);
    /// The number: an unchanged channel is written as "-2", which is read as unchanged.
    std::string toXmlString() const;

    void applyTo(MidiEngine::OrvMidiMessage& event) const;

    bool operator==(const ChannelTranslation&) const = default;
};
}  // namespace Backend::MidiInput
