#pragma once

#include <iosfwd>
#include <span>

#include "backend/model/MidiEventConfiguration.h"
#include "backend/values/ElementMap.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
/// The entries of all incoming events.
class ORV_API MidiEventConfigurationMap final : public Component::ElementMap<MidiEventConfiguration, MidiEvent>
{
public:
    /// The most specific entry for an event: that of its input and channel, else of its input and all channels, else of
    /// all inputs and its channel, else of all. Null if there is none.
    const MidiEventConfiguration* findBest(const MidiEngine::OrvMidiMessage& message) const;

    /// The same, but null also for an entry without translations, which leaves the event as it is.
    const MidiEventConfiguration* findTranslations(const MidiEngine::OrvMidiMessage& message) const
    {
        const MidiEventConfiguration* const found = findBest(message);
        return found != nullptr && !found->getTranslations().empty() ? found : nullptr;
    }

    /// An event of an input as it is translated: a note-on with velocity 0, which many keyboards send when a key is
    /// released, is a note-off with velocity 100.
    static MidiEngine::OrvMidiMessage asReceived(MidiEngine::OrvMidiMessage event)
    {
        constexpr int RELEASE_VELOCITY = 100;
        if (event.isNoteOn() && event.getD2() == 0) {
            event.setToNoteOff();
            event.setD2(RELEASE_VELOCITY);
        }
        return event;
    }

    /// Reads the "MidiEvent" elements of a section; they replace the present entries or, if the section says "merge",
    /// are added. Of two for the same event the later one counts.
    void readXml(const XmlElement& section, const TranslationManagement::TranslationFactory& createTranslation);

    /// Writes the "MidiInput" element with the entries of `events`, marked to be merged; an event without an entry is
    /// written empty, which clears it when it is read. Without `events`, all entries worth storing are written.
    void writeXml(std::ostream& out, int indent, std::span<const MidiEvent> events) const;

    /// False for an empty entry, unless it hides another one for the same kind of event.
    bool isWorthStoring(const MidiEventConfiguration& configuration) const;
};
}  // namespace Backend::MidiInput
