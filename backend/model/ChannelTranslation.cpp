#include "backend/model/ChannelTranslation.h"

#include "backend/xml/Text.h"

namespace Backend::MidiInput
{
namespace
{
constexpr std::int32_t LAST_CHANNEL = 15;
}

ChannelTranslation ChannelTranslation::fromXmlString(std::string_view text)
{
    text = Text::trim(text);
    if (text == "unchanged") return {UNCHANGED};
    return {Text::parseInteger(text).value_or(DEFAULT)};
}

std::string ChannelTranslation::toXmlString() const { return std::to_string(channel); }

/// With "unchanged" the channel becomes the event's own, so that the layers keep it.
void ChannelTranslation::applyTo(MidiEngine::OrvMidiMessage& event) const
{
    if (channel == UNCHANGED) return event.setChannel(event.getChannel());
    const bool isFixed = channel >= 0 && channel <= LAST_CHANNEL;
    event.setChannel(isFixed ? channel : MidiEngine::OrvMidiMessage::DEFAULT_CHANNEL);
}
}  // namespace Backend::MidiInput
