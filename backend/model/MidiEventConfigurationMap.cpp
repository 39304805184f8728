#include "backend/model/MidiEventConfigurationMap.h"

#include <ostream>

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::MidiInput
{
const MidiEventConfiguration* MidiEventConfigurationMap::findBest(const MidiEngine::OrvMidiMessage& message) const
{
    constexpr auto ALL = MidiEvent::ALL;
    const auto input = message.getInput();
    const auto channel = message.getChannel();
    const auto& kind = message.getMidiMessage();
    for (const MidiEvent& key : {MidiEvent::of(message), MidiEvent{input, ALL, kind}, MidiEvent{ALL, channel, kind},
                                 MidiEvent{ALL, ALL, kind}})
        if (const MidiEventConfiguration* found = findElement(key)) return found;
    return nullptr;
}

void MidiEventConfigurationMap::readXml(const XmlElement& section,
                                        const TranslationManagement::TranslationFactory& createTranslation)
{
    if (!section.getBoolAttribute("merge", false)) clear();
    forEachElement(section, [&](const XmlElement& child) {
        if (child.getTagName() != "MidiEvent") return;
        auto configuration = MidiEventConfiguration::fromXml(child, createTranslation);
        const MidiEvent event = configuration.getEvent();
        put(event, std::move(configuration));
    });
}

void MidiEventConfigurationMap::writeXml(std::ostream& out, int indent, std::span<const MidiEvent> events) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag("MidiInput") << xmlBoolAttribute("merge", !events.empty()) << xmlCloseOpen() << '\n';
    for (const MidiEvent& event : events) {
        const MidiEventConfiguration* configuration = findElement(event);
        (configuration != nullptr ? *configuration : MidiEventConfiguration(event)).writeXml(out, indent + 1);
    }
    if (events.empty()) {
        const auto iterator = createIterator();
        while (const MidiEventConfiguration* configuration = iterator->next())
            if (isWorthStoring(*configuration)) configuration->writeXml(out, indent + 1);
    }
    out << tabs << xmlEndTag("MidiInput") << '\n';
}

bool MidiEventConfigurationMap::isWorthStoring(const MidiEventConfiguration& configuration) const
{
    if (!configuration.isEmpty()) return true;
    const auto iterator = createIterator();
    while (const MidiEventConfiguration* other = iterator->next())
        if (other != &configuration && other->getEvent().isSameKind(configuration.getEvent())) return true;
    return false;
}
}  // namespace Backend::MidiInput
