#include "backend/model/SequenceSetting.h"

#include <ostream>

#include "backend/xml/Text.h"
#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::SequenceManagement
{
namespace
{
constexpr std::string_view SEQUENCE = "Sequence";

/// A sequence without text has a single node, a rest.
std::vector<SequenceNode> readNodes(const XmlElement& setting)
{
    XmlElement first;
    forEachElement(setting, [&](const XmlElement& child) {
        if (!first.hasElement()) first = child;
    });
    if (first.getTagName() != SEQUENCE) return {};
    const std::string text = first.getText();
    const SequenceNode rest{{.rest = true}};
    return Text::trim(text).empty() ? std::vector<SequenceNode>(1, rest) : parseSequence(text);
}
}  // namespace

SequenceSetting SequenceSetting::fromXml(const XmlElement& element)
{
    SequenceSetting setting;
    setting.preset = Text::trim(element.getAttribute("preset"));
    setting.useNote = element.getBoolAttribute("useNote", true);
    setting.useVelocity = element.getBoolAttribute("useVelocity", true);
    setting.useLength = element.getBoolAttribute("useLength", true);
    if (setting.preset.empty()) setting.nodes = readNodes(element);
    return setting;
}

void SequenceSetting::writeXml(std::ostream& out, int indent) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag("SequenceSetting") << xmlStringAttribute("preset", preset)
        << xmlBoolAttribute("useNote", useNote) << xmlBoolAttribute("useVelocity", useVelocity)
        << xmlBoolAttribute("useLength", useLength) << xmlCloseOpen() << '\n';
    if (preset.empty() && !nodes.empty())
        out << tabs << '\t' << xmlStartTag(SEQUENCE) << getSequenceText() << xmlEndTag(SEQUENCE) << '\n';
    out << tabs << xmlEndTag("SequenceSetting") << '\n';
}

void SequenceSetting::setSequenceText(std::string_view text)
{
    nodes = parseSequence(text);
    preset.clear();
}

std::string SequenceSetting::getSequenceText() const { return printSequence(nodes); }
}  // namespace Backend::SequenceManagement
