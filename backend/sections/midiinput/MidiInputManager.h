#pragma once

#include <iosfwd>
#include <span>
#include <vector>

#include "backend/messages/MidiInputMessageManager.h"
#include "backend/model/MidiEventConfigurationMap.h"
#include "backend/sections/Section.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
/// The translations of incoming events. After every change the zones are worked out anew and the
/// window is notified. The backend thread's.
class ORV_API MidiInputManager final : public Section<MidiEventConfigurationMap, MidiEvent>
{
public:
    MidiInputManager(OrvIF& backend, MessageManagerMaster& master);

    const MidiEventConfigurationMap& getConfiguration() const { return getContent(); }
    MidiInputMessageManager& getMessageManager() override { return messageManager; }
    void notifyGui() const override;

    /// Plays what the event's translations make of it. One without translations goes to the layers, which give it their
    /// channel; one whose conditions all fail is swallowed. A note on of velocity 0 is a note off of velocity 100.
    void translate(MidiEngine::OrvMidiMessage message);

    /// As a program or a preset holds it, see `MidiEventConfigurationMap::writeXml`.
    void writeSection(std::ostream& out, int indent, std::span<const MidiEvent> eventsToSave) const
    {
        writeXml(out, indent, eventsToSave);
    }
    void writeXml(std::ostream& out, int indent, std::span<const MidiEvent> eventsToSave) const override;

    /// Each takes the place of the configuration of its event. With `notify` the window gets them back.
    void mergeEventConfigurations(const std::vector<MidiEventConfiguration>& configurations, bool notify);

    void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const override;

private:
    void readContent(const XmlElement& section, MidiEventConfigurationMap& into) override;
    void updatePlaying() override { orv.updateZones(); }

    MidiInputMessageManager messageManager;
};
}  // namespace Backend::MidiInput
