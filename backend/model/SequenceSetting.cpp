#include "backend/model/SequenceSetting.h"

#include <algorithm>
#include <ostream>

#include "backend/engine/MidiEngine.h"
#include "backend/files/SequencePresetManager.h"
#include "backend/xml/Text.h"
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::SequenceManagement
{
namespace
{
constexpr std::string_view OFF = "Off";
constexpr std::string_view SEQUENCE = "Sequence";

std::vector<SequenceNode> loadNodes(const std::string& preset)
{
    const std::string path = SequencePresetManager::getPresetPath(preset);
    if (path.empty()) return {};
    return parseSequence(XmlDocument(path, XmlDocument::Source::file).getRoot().getText());
}

/// A sequence without text is a single rest.
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

SequenceSetting SequenceSetting::fromPreset(std::string_view name)
{
    SequenceSetting setting;
    setting.useLength = true;
    name = Text::trim(name);
    if (name.empty() || name == OFF) return setting;
    setting.preset = name;
    setting.nodes = loadNodes(setting.preset);
    return setting;
}

SequenceSetting SequenceSetting::fromXml(const XmlElement& element)
{
    SequenceSetting setting;
    setting.preset = Text::trim(element.getAttribute("preset"));
    setting.useNote = element.getBoolAttribute("useNote", true);
    setting.useVelocity = element.getBoolAttribute("useVelocity", true);
    setting.useLength = element.getBoolAttribute("useLength", true);
    setting.nodes = setting.preset.empty() ? readNodes(element) : loadNodes(setting.preset);
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

void SequenceSetting::play(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                           const MidiEngine::OrvMidiMessage& event, std::size_t node) const
{
    if (node >= nodes.size() || !event.isNote()) return;
    for (const SequenceOffset& offset : nodes[node]) {
        if (offset.rest) continue;
        MidiEngine::OrvMidiMessage played = event;
        if (useNote) played.setD1(MidiEngine::foldNote(std::int64_t{event.getD1()} + offset.note));
        if (useVelocity) {
            const std::int64_t velocity = static_cast<std::int8_t>(event.getD2());
            played.setD2(static_cast<int>(std::clamp<std::int64_t>(velocity + offset.velocity, 0, 127)));
        }
        engine.playMidiInternal(slice, played, false);
    }
}
}  // namespace Backend::SequenceManagement
