#include "backend/sections/computerinput/ComputerInputManager.h"

#include <array>
#include <sstream>

#include "api/OrvIF.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/PresetSections.h"
#include "backend/sections/computerinput/ButtonEvent.h"
#include "backend/xml/Text.h"
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::ComputerInput
{
using FunctionManagement::FunctionNoteSpan;

namespace
{
constexpr const char* SECTION = PresetSections::COMPUTER_INPUT.rootElement;

constexpr auto COMMANDS = std::to_array<Command<ComputerInputManager>>({
    on<ComputerInputMessage::SET_KEY_CONFIGURATIONS, &ComputerInputManager::mergeKeyConfigurations>(),
    on<ComputerInputMessage::SET_USE_KEY_UP_MOD, &ComputerInputManager::setUseKeyUpMod>(),
    on<ComputerInputMessage::LOAD_PRESET, &ComputerInputManager::loadPreset>(),
    on<ComputerInputMessage::RENAME_PRESET, &ComputerInputManager::renamePreset>(),
    on<ComputerInputMessage::DELETE_PRESET, &ComputerInputManager::deletePreset>(),
    on<ComputerInputMessage::SAVE_PRESET, &ComputerInputManager::savePreset>(),
    on<ComputerInputMessage::KEY_DOWN, &ComputerInputManager::keyDown>(),
    on<ComputerInputMessage::KEY_UP, &ComputerInputManager::keyUp>(),
});
}  // namespace

ComputerInputManager::ComputerInputManager(OrvIF& backend, MessageManagerMaster& master)
    : orv(backend),
      presets(PresetSections::COMPUTER_INPUT),
      messageManager(master, [this](Message& message) { execute<ComputerInputManager>(COMMANDS, *this, message); })
{
}

// --- files

void ComputerInputManager::loadSection(const XmlElement& section)
{
    if (section.getTagName() != SECTION) return;
    currentPreset.clear();
    const std::string preset(Text::trim(section.getAttribute("preset")));
    if (!preset.empty()) return loadPreset(preset);
    readSection(section, keys, useKeyUpMod);
    publish();
}

/// False if the element is none of ours.
bool ComputerInputManager::readSection(const XmlElement& section, KeyConfigurationMap& map, bool& useKeyUpModOut) const
{
    if (section.getTagName() != SECTION) return false;
    useKeyUpModOut = section.getBoolAttribute("useKeyUpMod", false);
    if (!section.getBoolAttribute("merge", false)) map.clear();
    const auto create = [this](const XmlElement& element) {
        return FunctionManagement::createFunctionFromXml(element, orv);
    };
    forEachElement(section, [&](const XmlElement& child) {
        if (child.getTagName() == "Key") map.put(KeyConfiguration::fromXml(child, create));
    });
    return true;
}

void ComputerInputManager::writeSection(std::ostream& out, int indent, std::span<const Key> keysToSave,
                                        bool forceInline) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    const std::string preset(Text::trim(currentPreset));
    const bool isReference = !forceInline && !preset.empty() && !isPresetChanged(preset);
    out << tabs << xmlOpenTag(SECTION) << (isReference ? xmlStringAttribute("preset", preset) : "")
        << xmlBoolAttribute("merge", !keysToSave.empty()) << xmlBoolAttribute("useKeyUpMod", useKeyUpMod)
        << xmlCloseOpen() << '\n';
    const auto write = [&](const KeyConfiguration& configuration) { configuration.writeXml(out, indent + 1); };
    if (!isReference && keysToSave.empty()) {
        const auto iterator = keys.createIterator();
        while (const KeyConfiguration* configuration = iterator->next()) write(*configuration);
    } else if (!isReference) {
        for (const Key& key : keysToSave) {
            const KeyConfiguration* configuration = keys.findElement(key);
            write(configuration != nullptr ? *configuration : KeyConfiguration(key));
        }
    }
    out << tabs << xmlEndTag(SECTION) << '\n';
}

void ComputerInputManager::loadPreset(const std::string& name)
{
    if (!loadPresetInto(name, keys, useKeyUpMod)) return;
    currentPreset = name;
    publish();
    tellGui({.number = GuiMessage::COMPUTER_INPUT_PRESET});
}

bool ComputerInputManager::loadPresetInto(const std::string& name, KeyConfigurationMap& map, bool& useKeyUpModOut) const
{
    const std::string path = presets.findPreset(name);
    return !path.empty() && readSection(XmlDocument(path, XmlDocument::Source::file).getRoot(), map, useKeyUpModOut);
}

void ComputerInputManager::savePreset(const std::string& name, const std::vector<Key>& keysToSave)
{
    presets.save(name, [&](std::string& text) {
        std::ostringstream out;
        writeSection(out, 0, keysToSave, true);
        text += out.str();
    });
}

bool ComputerInputManager::isPresetChanged(const std::string& name) const
{
    if (presets.findPreset(name).empty()) return false;
    KeyConfigurationMap stored;
    bool storedUseKeyUpMod = false;
    loadPresetInto(name, stored, storedUseKeyUpMod);
    return storedUseKeyUpMod != useKeyUpMod || !(stored == keys);
}

void ComputerInputManager::renamePreset(const std::string& name, const std::string& newName)
{
    presets.rename(name, newName);
}

void ComputerInputManager::deletePreset(const std::string& name) { presets.remove(name); }

void ComputerInputManager::setDefaults()
{
    keys.clear();
    useKeyUpMod = false;
    currentPreset.clear();
    publish();
}

// --- playing

void ComputerInputManager::keyEvent(const Key& key, bool isDown, bool isRepeat)
{
    const bool hasModifiers = isDown || useKeyUpMod;
    const KeyConfiguration* configuration = keys.findElement(hasModifiers ? key : Key{.keyCode = key.keyCode});
    if (configuration == nullptr) return;
    runButton(*configuration, !isDown ? ButtonEvent::up : isRepeat ? ButtonEvent::repeat : ButtonEvent::down);
}

void ComputerInputManager::getNoteSpans(std::vector<FunctionNoteSpan>& result) const
{
    const auto iterator = keys.createIterator();
    while (const KeyConfiguration* configuration = iterator->next()) appendNoteSpans(*configuration, result);
}

// --- the window

void ComputerInputManager::mergeKeyConfigurations(const std::vector<KeyConfiguration>& configurations, bool notifyGui)
{
    for (const KeyConfiguration& configuration : configurations) keys.put(configuration);
    orv.updateZones();
    if (notifyGui && orv.getGuiWindowHandle())
        tellGui({.number = GuiMessage::KEY_CONFIGURATIONS,
                 .payload = Payload::of(std::vector<KeyConfiguration>(configurations))});
    tellGuiOfChange();
}

KeyConfiguration& ComputerInputManager::getOrCreate(const Key& key)
{
    if (keys.findElement(key) == nullptr) keys.put(KeyConfiguration(key));
    return *keys.findElement(key);
}

void ComputerInputManager::publish()
{
    orv.updateZones();
    refreshGui();
}

void ComputerInputManager::refreshGui() const
{
    if (orv.getGuiWindowHandle())
        tellGui({.number = GuiMessage::COMPUTER_INPUT,
                 .wparam = useKeyUpMod,
                 .payload = Payload::of(KeyConfigurationMap(keys))});
    tellGuiOfChange();
}

void ComputerInputManager::tellGuiOfChange() const
{
    tellGui({.number = GuiMessage::COMPUTER_INPUT_CHANGED, .payload = Payload::of(std::string(currentPreset))});
}

void ComputerInputManager::tellGui(Message message) const { orv.getGuiWindowHandle().post(std::move(message)); }
}  // namespace Backend::ComputerInput
