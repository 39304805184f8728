#include "backend/sections/midiinput/MidiInputManager.h"

#include <array>

#include <sstream>
#include <utility>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/PresetSections.h"
#include "backend/xml/XmlDocument.h"

namespace Backend::MidiInput
{
namespace
{
constexpr int RELEASE_VELOCITY = 100;
}

namespace
{
constexpr auto COMMANDS = std::to_array<Command<MidiInputManager>>({
    on<MidiInputMessage::SET_EVENT_CONFIGURATIONS, &MidiInputManager::mergeEventConfigurations>(),
    on<MidiInputMessage::LOAD_PRESET, &MidiInputManager::loadPreset>(),
    on<MidiInputMessage::RENAME_PRESET, &MidiInputManager::renamePreset>(),
    on<MidiInputMessage::DELETE_PRESET, &MidiInputManager::deletePreset>(),
    on<MidiInputMessage::SAVE_PRESET, &MidiInputManager::savePreset>(),
});
}  // namespace

MidiInputManager::MidiInputManager(OrvIF& backend, MessageManagerMaster& master)
    : orv(backend),
      presets(PresetSections::MIDI_INPUT),
      messageManager(master, [this](Message& message) { execute<MidiInputManager>(COMMANDS, *this, message); })
{
}

// --- events

void MidiInputManager::translate(MidiEngine::OrvMidiMessage message)
{
    // Many keyboards release a key with a note on of velocity 0. From here on it is a note off.
    if (message.isNoteOn() && message.getD2() == 0) {
        message.setToNoteOff();
        message.setD2(RELEASE_VELOCITY);
    }
    const MidiEventConfiguration* const found = events.findBest(message);
    if (found != nullptr && !found->getTranslations().empty()) {
        // Of a copy: a translation may load another program or preset, which replaces what is here.
        const MidiEventConfiguration configuration = *found;
        return configuration.execute(message);
    }
    message.setDefaultChannel(true);  // the layers give it theirs
    orv.getOrvMessageManager().postPlayMidi(message);
}

void MidiInputManager::getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const
{
    const auto iterator = events.createIterator();
    while (const MidiEventConfiguration* configuration = iterator->next()) configuration->getNoteSpans(result);
}

// --- files

void MidiInputManager::loadSection(const XmlElement& section)
{
    if (section.getTagName() != presets.getSection().rootElement) return;
    events.readXml(section, TranslationManagement::createTranslationFromXml);
    const auto iterator = events.createIterator();
    while (MidiEventConfiguration* configuration = iterator->next()) configuration->setOrv(orv);
    publish();
}

void MidiInputManager::writeSection(std::ostream& out, int indent, std::span<const MidiEvent> eventsToSave) const
{
    events.writeXml(out, indent, eventsToSave);
}

void MidiInputManager::loadPreset(const std::string& name)
{
    const std::string path = presets.findPreset(name);
    if (!path.empty()) loadSection(XmlDocument(path, XmlDocument::Source::file).getRoot());
}

void MidiInputManager::savePreset(const std::string& name, const std::vector<MidiEvent>& eventsToSave)
{
    presets.save(name, [&](std::string& text) {
        std::ostringstream out;
        writeSection(out, 0, eventsToSave);
        text += out.str();
    });
}

void MidiInputManager::renamePreset(const std::string& name, const std::string& newName)
{
    presets.rename(name, newName);
}

void MidiInputManager::deletePreset(const std::string& name) { presets.remove(name); }

void MidiInputManager::setDefaults()
{
    events.clear();
    publish();
}

// --- the window's wishes

void MidiInputManager::mergeEventConfigurations(const std::vector<MidiEventConfiguration>& configurations,
                                                bool notifyGui)
{
    for (MidiEventConfiguration configuration : configurations) {
        const MidiEvent event = configuration.getEvent();
        configuration.setOrv(orv);
        events.put(event, std::move(configuration));
    }
    orv.updateZones();
    const WindowHandle window = orv.getGuiWindowHandle();
    if (notifyGui && window)
        window.post({.number = GuiMessage::MIDI_EVENT_CONFIGURATIONS,
                     .payload = Payload::of(std::vector<MidiEventConfiguration>(configurations))});
}

// --- publishing

void MidiInputManager::publish()
{
    orv.updateZones();
    const WindowHandle window = orv.getGuiWindowHandle();
    if (window)
        window.post({.number = GuiMessage::MIDI_INPUT, .payload = Payload::of(MidiEventConfigurationMap(events))});
}
}  // namespace Backend::MidiInput
