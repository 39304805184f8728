#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
/// Which channel a translated event gets: its own, that of the layers it passes, or a fixed one.
struct ORV_API ChannelTranslation {
    static constexpr std::int32_t UNCHANGED = -2;
    static constexpr std::int32_t DEFAULT = -1;

    std::int32_t channel = DEFAULT;  ///< one of the above, or 0 to 15; anything else is as the default

    /// From "unchanged", "default" or a number; no number at all is the default.
    static ChannelTranslation fromXmlString(std::string_view text);
    /// The number alone: an unchanged channel is written as "-2", which reads as the same.
    std::string toXmlString() const;

    void applyTo(MidiEngine::OrvMidiMessage& event) const;

    bool operator==(const ChannelTranslation&) const = default;
};
}  // namespace Backend::MidiInput
