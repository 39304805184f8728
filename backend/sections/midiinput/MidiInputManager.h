#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <vector>

#include "backend/files/PresetManager.h"
#include "backend/messages/MidiInputMessageManager.h"
#include "backend/model/FunctionNoteSpan.h"
#include "backend/model/MidiEventConfigurationMap.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
/// The authority over the translations of incoming events. After every change the zones are worked out anew and the
/// window is told. The backend thread's own.
class ORV_API MidiInputManager
{
public:
    MidiInputManager(OrvIF& backend, MessageManagerMaster& master);

    const MidiEventConfigurationMap& getConfiguration() const { return events; }
    MidiInputMessageManager& getMessageManager() { return messageManager; }
    PresetManager& getPresets() { return presets; }

    /// Plays what the event's translations make of it. One without translations goes to the layers, which give it their
    /// channel; one whose conditions all fail is swallowed. A note on of velocity 0 is a note off of velocity 100.
    void translate(MidiEngine::OrvMidiMessage message);

    /// Any element but "MidiInput" changes nothing.
    void loadSection(const XmlElement& section);
    /// See `MidiEventConfigurationMap::writeXml`.
    void writeSection(std::ostream& out, int indent, std::span<const MidiEvent> eventsToSave) const;

    /// A preset that is not there changes nothing.
    void loadPreset(const std::string& name);
    /// The configurations of `eventsToSave`, to be merged when loaded, or without events all of them.
    void savePreset(const std::string& name, const std::vector<MidiEvent>& eventsToSave);
    void renamePreset(const std::string& name, const std::string& newName);
    void deletePreset(const std::string& name);

    /// No translations.
    void setDefaults();

    /// Each takes the place of the configuration of its event. With `notifyGui` the window gets them back.
    void mergeEventConfigurations(const std::vector<MidiEventConfiguration>& configurations, bool notifyGui);

    /// Appends what the translations can play in zones.
    void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const;

private:
    void publish();

    OrvIF& orv;
    MidiEventConfigurationMap events;
    PresetManager presets;
    MidiInputMessageManager messageManager;
};
}  // namespace Backend::MidiInput
