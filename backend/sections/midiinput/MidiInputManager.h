#pragma once

#include <iosfwd>
#include <memory>
#include <span>
#include <vector>

#include "backend/messages/MidiInputMessageManager.h"
#include "backend/model/MidiEventConfigurationMap.h"
#include "backend/sections/Section.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
/// The translations of incoming MIDI events: reads and writes the section, and executes what it has for an event. After
/// a change, zones are determined again, and the window is notified. The backend thread's.
class ORV_API MidiInputManager final : public Section<MidiEventConfigurationMap, MidiEvent>
{
public:
    MidiInputManager(OrvIF& backend, MessageManagerMaster& master);

    const MidiEventConfigurationMap& getConfiguration() const { return getContent(); }
    MidiInputMessageManager& getMessageManager() override { return messageManager; }
    void notifyGui() const override;

    /// The configuration as it was published last. It does not change.
    const std::shared_ptr<const MidiEventConfigurationMap>& getPublished() const { return published; }

    /// Plays what the translations of an event's entry make of it. An event without an entry goes to the layers, which
    /// set its channel. `received` as `MidiEventConfigurationMap::asReceived` gives it; `map` stays while it is
    /// executed, because a translation may load another program.
    void translate(const MidiEventConfigurationMap& map, MidiEngine::OrvMidiMessage received);

    /// Writes the element as a program or a preset holds it, see `MidiEventConfigurationMap::writeXml`.
    void writeSection(std::ostream& out, int indent, std::span<const MidiEvent> eventsToSave) const
    {
        writeXml(out, indent, eventsToSave);
    }
    void writeXml(std::ostream& out, int indent, std::span<const MidiEvent> eventsToSave) const override;

    // Edits: an event that is added is that of the record's attributes.

    std::vector<RecordId> getRecordIds() const override;
    std::string writeRecord(RecordId id) const override;
    void replaceRecord(RecordId id, const XmlElement& element) override;
    void addRecord(RecordId id, const XmlElement& element) override;
    void removeRecord(RecordId id) override;

    /// Each replaces the entry of its event; one without translations removes it. With `notify` they are sent back to the window.
    void mergeEventConfigurations(const std::vector<MidiEventConfiguration>& configurations, bool notify);

    std::uint8_t getNoteSource() const override { return FunctionManagement::NoteSource::MIDI_INPUTS; }
    void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const override;

private:
    const MidiEventConfiguration* findRecord(RecordId id) const;
    void put(MidiEventConfiguration configuration);
    void readContent(const XmlElement& section, MidiEventConfigurationMap& into) override;
    void updatePlaying() override;

    std::shared_ptr<const MidiEventConfigurationMap> published = std::make_shared<const MidiEventConfigurationMap>();
    MidiInputMessageManager messageManager;
};
}  // namespace Backend::MidiInput
