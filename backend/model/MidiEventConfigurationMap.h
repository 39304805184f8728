#pragma once

#include <iosfwd>
#include <span>

#include "backend/model/MidiEventConfiguration.h"
#include "backend/values/ElementMap.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
/// The translations of all events.
class ORV_API MidiEventConfigurationMap final : public Component::ElementMap<MidiEventConfiguration, MidiEvent>
{
public:
    /// The configuration of the most specific key that the map holds for the event: of its input and channel, its input
    /// and all channels, all inputs and its channel, or all of both. It hides the others. Null if there is none.
    const MidiEventConfiguration* findBest(const MidiEngine::OrvMidiMessage& message) const;

    /// Reads the "MidiEvent" elements of a section over what is here, or, unless the section says "merge", in its
    /// place. Of two for the same event the later one counts.
    void readXml(const XmlElement& section, const TranslationManagement::TranslationFactory& createTranslation);

    /// The "MidiInput" element with the configurations of `events`, to be merged when read; one that is not here is
    /// written empty and so clears that event. Without events it is the whole map, but for what is not worth storing.
    void writeXml(std::ostream& out, int indent, std::span<const MidiEvent> events) const;

    /// False for an empty configuration, unless it keeps another one of the same kind of event from acting.
    bool isWorthStoring(const MidiEventConfiguration& configuration) const;
};
}  // namespace Backend::MidiInput
