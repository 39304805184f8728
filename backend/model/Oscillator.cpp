#include "backend/model/Oscillator.h"

#include <ostream>

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Oscillators
{
Oscillator Oscillator::fromXml(const XmlElement& element, OscId oscId)
{
    Oscillator oscillator;
    oscillator.id = oscId;
    oscillator.type = OscillatorType::fromXmlString(element.getAttribute("type"));
    oscillator.speed = element.getIntAttribute("speed", oscillator.speed);
    oscillator.min = element.getIntAttribute("min", oscillator.min);
    oscillator.max = element.getIntAttribute("max", oscillator.max);
    oscillator.speedMode = TimeIntervalType::fromXmlString(element.getAttribute("speedMode"));
    oscillator.stopValue = element.getIntAttribute("stopValue", oscillator.stopValue);
    oscillator.detail = element.getIntAttribute("detail", oscillator.detail);
    oscillator.midiMessage = MidiEngine::MidiMessage::fromXmlString(element.getAttribute("midiMessage"));
    oscillator.output = element.getByteAttribute("output", oscillator.output);
    oscillator.channel = element.getByteAttribute("channel", oscillator.channel);
    oscillator.zone = element.getByteAttribute("zone", oscillator.zone);
    return oscillator;
}

void Oscillator::writeXml(std::ostream& out, int indent) const
{
    out << std::string(static_cast<std::size_t>(indent), '\t') << xmlOpenTag("Oscillator")
        << xmlItemAttribute("type", type) << xmlIntAttribute("speed", speed) << xmlIntAttribute("min", min)
        << xmlIntAttribute("max", max) << xmlItemAttribute("speedMode", speedMode)
        << xmlIntAttribute("stopValue", stopValue) << xmlIntAttribute("detail", detail)
        << xmlItemAttribute("midiMessage", midiMessage) << xmlCharAttribute("output", output)
        << xmlCharAttribute("channel", channel) << xmlCharAttribute("zone", zone) << xmlCloseEmpty() << '\n';
}

Oscillator Oscillator::asPlayed() const
{
    Oscillator oscillator = *this;
    oscillator.id = -1;
    oscillator.selected = oscillator.playing = false;
    oscillator.speedMode = {};
    return oscillator;
}
}  // namespace Backend::Oscillators
