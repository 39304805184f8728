#include "backend/model/Layer.h"

#include <ostream>

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Layers
{
using ArpeggioManagement::ArpeggioSetting;
using MidiEngine::Note;

namespace
{
template <class Value>
Value itemAttribute(const XmlElement& element, std::string_view name, const Value& defaultValue)
{
    return Value::fromXmlString(element.getAttribute(name, defaultValue.toXmlString()));
}

/// The arpeggio of the first element in `element`.
std::optional<ArpeggioSetting> readArpeggio(const XmlElement& element)
{
    XmlElement first;
    forEachElement(element, [&](const XmlElement& child) {
        if (!first.hasElement()) first = child;
    });
    return ArpeggioSetting::fromXml(first);
}
}  // namespace

Layer Layer::fromXml(const XmlElement& element, LayerId layerId)
{
    Layer layer;
    layer.id = layerId;
    layer.mute = element.getBoolAttribute("mute", layer.mute);
    layer.mono = element.getBoolAttribute("mono", layer.mono);
    layer.toggle = itemAttribute(element, "toggle", layer.toggle);
    layer.useNoteStack = element.getBoolAttribute("useNoteStack", layer.useNoteStack);
    layer.minNote = itemAttribute(element, "minNote", layer.minNote);
    layer.maxNote = itemAttribute(element, "maxNote", layer.maxNote);
    layer.minVelocity = element.getByteAttribute("minVelocity", layer.minVelocity);
    layer.maxVelocity = element.getByteAttribute("maxVelocity", layer.maxVelocity);
    layer.zone = element.getByteAttribute("zone", layer.zone);
    layer.output = element.getByteAttribute("output", layer.output);
    layer.channel = element.getByteAttribute("channel", layer.channel);
    layer.transpose = itemAttribute(element, "transpose", layer.transpose);
    layer.key = itemAttribute(element, "key", layer.key);
    layer.velocity = itemAttribute(element, "velocity", layer.velocity);
    layer.compress = itemAttribute(element, "compress", layer.compress);
    forEachElement(element, [&](const XmlElement& child) {
        if (child.getTagName() == "Arpeggio" && !layer.arpeggio) layer.arpeggio = readArpeggio(child);
        if (child.getTagName() == "SequenceSetting")
            layer.sequenceSetting = SequenceManagement::SequenceSetting::fromXml(child);
    });
    return layer;
}

void Layer::writeXml(std::ostream& out, int indent) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag("Layer") << xmlBoolAttribute("mute", mute) << xmlBoolAttribute("mono", mono)
        << xmlItemAttribute("toggle", toggle) << xmlBoolAttribute("useNoteStack", useNoteStack)
        << xmlItemAttribute("minNote", minNote) << xmlItemAttribute("maxNote", maxNote)
        << xmlCharAttribute("minVelocity", minVelocity) << xmlCharAttribute("maxVelocity", maxVelocity)
        << xmlCharAttribute("zone", zone) << xmlCharAttribute("output", output) << xmlCharAttribute("channel", channel)
        << xmlItemAttribute("transpose", transpose) << xmlItemAttribute("key", key)
        << xmlItemAttribute("velocity", velocity) << xmlItemAttribute("compress", compress) << xmlCloseOpen() << '\n';
    if (arpeggio) {
        out << tabs << '\t' << xmlStartTag("Arpeggio") << '\n';
        arpeggio->writeXml(out, indent + 2);
        out << tabs << '\t' << xmlEndTag("Arpeggio") << '\n';
    }
    if (!sequenceSetting.nodes.empty()) sequenceSetting.writeXml(out, indent + 1);
    out << tabs << xmlEndTag("Layer") << '\n';
}

std::string Layer::getLayerString(const std::string& outputName) const
{
    const auto isBlank = [](const RelativeFixedValue& value) { return value.relative && value.value == 0; };
    std::string text = "L:" + std::to_string(id + 1) + "  Ch:" + std::to_string(channel + 1);
    if (zone >= 0) text += "  Z:" + std::to_string(zone + 1);
    if (hasVelocityRange()) text += "  VR:" + std::to_string(minVelocity) + "-" + std::to_string(maxVelocity);
    if (output >= 0) text += "  O:" + outputName;
    if (!isBlank(transpose)) {
        text += "  T:" + transpose.toXmlString();
        if (key.isNote()) text += "  K:" + getNoteName(key.getNumber(), MidiEngine::Octave::without);
    }
    if (!isBlank(velocity)) text += "  V:" + velocity.toXmlString();
    if (compress != Fraction{}) text += "  Comp:" + compress.toDisplayString();
    if (toggle.mode == NoteToggle::Mode::type1) text += "  TOGGLE1";
    if (toggle.mode == NoteToggle::Mode::type2) text += "  TOGGLE2";
    if (mono) text += "  MONO";
    if (!useNoteStack) text += "  STACK OFF";
    if (arpeggio) text += "  " + arpeggio->toString();
    return text;
}

Layer Layer::asPlayed() const
{
    Layer layer = *this;
    layer.id = -1;
    layer.selected = false;
    return layer;
}
}  // namespace Backend::Layers
