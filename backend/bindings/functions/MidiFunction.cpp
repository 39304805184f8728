#include "backend/bindings/functions/MidiFunctions.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::FunctionManagement
{
using MidiEngine::MessageType;
using MidiEngine::OrvMidiMessage;

namespace
{
constexpr int SEVEN_BITS = 0x7F;

std::int16_t kept(int value, MidiShape::Width width)
{
    return width == MidiShape::Width::bytes ? static_cast<std::int8_t>(value) : static_cast<std::int16_t>(value);
}

int readData(const XmlElement& element, const MidiDataShape& data, MidiShape::Width width)
{
    if (data.text == MidiDataShape::Text::number) {
        const int number = element.getIntAttribute(data.attribute, data.fromFile);
        return kept(number, width) == number ? number : data.fromFile;
    }
    return MidiEngine::parseNote(element.getAttribute(data.attribute));  // -1 without a note
}

std::string dataAttribute(const MidiDataShape& data, int value)
{
    if (data.text == MidiDataShape::Text::number) return xmlIntAttribute(data.attribute, value);
    return xmlItemAttribute(data.attribute, MidiEngine::Note(value));
}
}  // namespace

MidiParameters MidiParameters::picked(const MidiShape& shape)
{
    MidiParameters parameters;
    parameters.setD1(shape.d1.picked, shape);
    parameters.setD2(shape.d2.picked, shape);
    return parameters;
}

MidiParameters MidiParameters::fromXml(const XmlElement& element, const MidiShape& shape)
{
    MidiParameters parameters;
    parameters.zone = element.getByteAttribute("zone", -1);
    parameters.output = element.getByteAttribute("output", -1);
    if (shape.hasChannel) parameters.channel = element.getByteAttribute("channel", -1);
    if (shape.d1.exists()) parameters.setD1(readData(element, shape.d1, shape.width), shape);
    if (shape.d2.exists()) parameters.setD2(readData(element, shape.d2, shape.width), shape);
    return parameters;
}

void MidiParameters::writeXml(std::ostream& out, const MidiShape& shape) const
{
    out << xmlCharAttribute("zone", zone) << xmlCharAttribute("output", output);
    if (shape.hasChannel) out << xmlCharAttribute("channel", channel);
    if (shape.d1.exists()) out << dataAttribute(shape.d1, d1);
    if (shape.d2.exists()) out << dataAttribute(shape.d2, d2);
}

void MidiParameters::setD1(int value, const MidiShape& shape)
{
    if (shape.d1.exists()) d1 = kept(value, shape.width);
}

void MidiParameters::setD2(int value, const MidiShape& shape)
{
    if (shape.d2.exists()) d2 = kept(value, shape.width);
}

void MidiParameters::play(OrvIF& orv, const MidiShape& shape) const
{
    const bool wide = shape.width == MidiShape::Width::fourteenBits;
    const int low = wide ? d1 & SEVEN_BITS : d1;
    const int high = wide ? (d1 >> 7) & SEVEN_BITS : d2;
    const bool isForLayers = shape.path == MidiShape::Path::layers;
    orv.playMidi(OrvMidiMessage({.type = shape.status,
                                 .d1 = low,
                                 .d2 = high,
                                 .channel = isForLayers ? channel : 0,
                                 .output = output,
                                 .zone = isForLayers ? zone : OrvMidiMessage::DEFAULT_ZONE}));
}

FunctionNoteSpan Functions::MidiNoteOn::getNoteSpan() const
{
    if (getZone() < 0) return {};
    const MidiEngine::Note note(getD1());
    return {.zone = getZone(), .lowNote = note, .highNote = note};
}
}  // namespace Backend::FunctionManagement
