#include "backend/sections/midiinput/MidiInputManager.h"

#include <array>
#include <utility>

#include "api/OrvMessageManager.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/PresetSections.h"

namespace Backend::MidiInput
{
namespace
{
constexpr int RELEASE_VELOCITY = 100;

constexpr auto COMMANDS =
    std::to_array<Command<MidiInputManager>>({
        on<MidiInputMessage::SET_EVENT_CONFIGURATIONS, &MidiInputManager::mergeEventConfigurations>(),
    }) +
    presetCommands<MidiInputManager, MidiInputMessage::Presets>();
}  // namespace

MidiInputManager::MidiInputManager(OrvIF& backend, MessageManagerMaster& master)
    : Section(backend, PresetSections::MIDI_INPUT),
      messageManager(master, [this](Message& message) { execute<MidiInputManager>(COMMANDS, *this, message); })
{
}

// --- events

void MidiInputManager::translate(MidiEngine::OrvMidiMessage message)
{
    // Many keyboards send a note-on with velocity 0 when a key is released.
    if (message.isNoteOn() && message.getD2() == 0) {
        message.setToNoteOff();
        message.setD2(RELEASE_VELOCITY);
    }
    const MidiEventConfiguration* const found = getContent().findBest(message);
    if (found != nullptr && !found->getTranslations().empty()) {
        // A copy, because a translation may load another program or preset, which replaces the entries.
        const MidiEventConfiguration configuration = *found;
        return configuration.execute(message);
    }
    message.setDefaultChannel(true);  // the layers set the channel
    orv.getOrvMessageManager().postPlayMidi(message);
}

void MidiInputManager::getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const
{
    const auto iterator = getContent().createIterator();
    while (const MidiEventConfiguration* configuration = iterator->next()) configuration->getNoteSpans(result);
}

// --- files

void MidiInputManager::readContent(const XmlElement& section, MidiEventConfigurationMap& into)
{
    into.readXml(section, TranslationManagement::createTranslationFromXml);
    const auto iterator = into.createIterator();
    while (MidiEventConfiguration* configuration = iterator->next()) configuration->setOrv(orv);
}

void MidiInputManager::writeXml(std::ostream& out, int indent, std::span<const MidiEvent> eventsToSave) const
{
    getContent().writeXml(out, indent, eventsToSave);
}

// --- requests of the window

void MidiInputManager::mergeEventConfigurations(const std::vector<MidiEventConfiguration>& configurations, bool notify)
{
    for (MidiEventConfiguration configuration : configurations) {
        const MidiEvent event = configuration.getEvent();
        configuration.setOrv(orv);
        edit().put(event, std::move(configuration));
    }
    updatePlaying();
    if (notify) postToGui(GuiMessage::MIDI_EVENT_CONFIGURATIONS, configurations);
}

void MidiInputManager::notifyGui() const { postToGui(GuiMessage::MIDI_INPUT, getContent()); }
}  // namespace Backend::MidiInput
