#include "backend/sections/midiinput/MidiInputManager.h"

#include <array>
#include <memory>
#include <utility>

#include "api/OrvMessageManager.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/model/PresetSections.h"

namespace Backend::MidiInput
{
namespace
{
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

void MidiInputManager::translate(const MidiEventConfigurationMap& map, MidiEngine::OrvMidiMessage received)
{
    if (const MidiEventConfiguration* const found = map.findTranslations(received)) return found->execute(received);
    received.setDefaultChannel(true);  // the layers set the channel
    orv.getOrvMessageManager().postPlayMidi(received);
}

void MidiInputManager::updatePlaying()
{
    published = std::make_shared<const MidiEventConfigurationMap>(getContent());
    orv.getMidiEngineMessageManager().postSetMidiTranslations(published);
    orv.updateZones();
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

// --- edits

namespace
{
RecordId recordOf(const MidiEventConfiguration& configuration)
{
    return static_cast<RecordId>(configuration.getEvent().getPacked());
}
}  // namespace

std::vector<RecordId> MidiInputManager::getRecordIds() const { return recordIds(getContent(), recordOf); }

const MidiEventConfiguration* MidiInputManager::findRecord(RecordId id) const
{
    const auto iterator = getContent().createIterator();
    while (const MidiEventConfiguration* configuration = iterator->next())
        if (recordOf(*configuration) == id) return configuration;
    return nullptr;
}

std::string MidiInputManager::writeRecord(RecordId id) const { return textOf(findRecord(id)); }

void MidiInputManager::replaceRecord(RecordId id, const XmlElement& element)
{
    if (findRecord(id) != nullptr) addRecord(id, element);
}

void MidiInputManager::addRecord(RecordId id, const XmlElement& element)
{
    auto configuration = MidiEventConfiguration::fromXml(element, TranslationManagement::createTranslationFromXml);
    if (recordOf(configuration) == id) put(std::move(configuration));
}

void MidiInputManager::removeRecord(RecordId id)
{
    if (const MidiEventConfiguration* const found = findRecord(id)) edit().remove(MidiEvent(found->getEvent()));
}

void MidiInputManager::put(MidiEventConfiguration configuration)
{
    const MidiEvent event = configuration.getEvent();
    configuration.setOrv(orv);
    edit().put(event, std::move(configuration));
}

// --- requests of the window

void MidiInputManager::mergeEventConfigurations(const std::vector<MidiEventConfiguration>& configurations, bool notify)
{
    for (const MidiEventConfiguration& configuration : configurations) {
        if (configuration.getTranslations().empty())
            edit().remove(configuration.getEvent());
        else
            put(configuration);
    }
    updatePlaying();
    if (notify) postToGui(GuiMessage::MIDI_EVENT_CONFIGURATIONS, configurations);
}

void MidiInputManager::notifyGui() const { postToGui(GuiMessage::MIDI_INPUT, getContent()); }
}  // namespace Backend::MidiInput
