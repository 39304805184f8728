#include "backend/sections/computerinput/ComputerInputManager.h"

#include <array>
#include <utility>

#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/PresetSections.h"
#include "backend/sections/Learning.h"
#include "backend/sections/computerinput/ButtonEvent.h"
#include "backend/xml/Text.h"
#include "backend/xml/XmlWriter.h"
#include "platform/DbgStream.h"
#include "platform/Utf8.h"

namespace Backend::ComputerInput
{
using FunctionManagement::FunctionNoteSpan;

namespace
{
constexpr const char* PRESET = "preset";
constexpr const char* USE_KEY_UP_MOD = "useKeyUpMod";

constexpr auto COMMANDS =
    std::to_array<Command<ComputerInputManager>>({
        on<ComputerInputMessage::SET_KEY_CONFIGURATIONS, &ComputerInputManager::mergeKeyConfigurations>(),
        on<ComputerInputMessage::SET_USE_KEY_UP_MOD, &ComputerInputManager::setUseKeyUpMod>(),
        on<ComputerInputMessage::KEY_DOWN, &ComputerInputManager::keyDown>(),
        on<ComputerInputMessage::KEY_UP, &ComputerInputManager::keyUp>(),
    }) +
    presetCommands<ComputerInputManager, ComputerInputMessage::Presets>();
}  // namespace

ComputerInputManager::ComputerInputManager(OrvIF& backend, MessageManagerMaster& master)
    : Section(backend, PresetSections::COMPUTER_INPUT),
      messageManager(master, [this](Message& message) { execute<ComputerInputManager>(COMMANDS, *this, message); })
{
}

// --- files

void ComputerInputManager::loadSection(const XmlElement& section)
{
    if (section.getTagName() != getTag()) return;
    currentPreset.clear();
    const std::string preset(Text::trim(section.getAttribute(PRESET)));
    if (preset.empty())
        readXml(section);
    else
        loadPreset(preset);
}

void ComputerInputManager::readKeys(const XmlElement& section, KeyBindings& into) const
{
    into.useKeyUpMod = section.getBoolAttribute(USE_KEY_UP_MOD, false);
    if (!section.getBoolAttribute("merge", false)) into.keys.clear();
    forEachElement(section, [&](const XmlElement& child) {
        if (child.getTagName() == "Key") into.keys.put(readKey(child));
    });
}

KeyConfiguration ComputerInputManager::readKey(const XmlElement& element) const
{
    return KeyConfiguration::fromXml(element, [this](const XmlElement& function) {
        return FunctionManagement::createFunctionFromXml(function, orv);
    });
}

/// Whether a program may name the preset instead of holding the keys.
bool ComputerInputManager::isStoredIn(const std::string& preset) const
{
    const XmlElement root = preset.empty() ? XmlElement() : readPreset(preset);
    if (!root.hasElement() || root.getBoolAttribute("merge", false)) return false;
    KeyBindings stored;
    readKeys(root, stored);
    return stored == getContent();
}

void ComputerInputManager::writeSection(std::ostream& out, int indent, std::span<const Key> keysToSave,
                                        bool forceInline) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    const std::string preset(Text::trim(currentPreset));
    const bool isReference = !forceInline && isStoredIn(preset);
    out << tabs << xmlOpenTag(getTag()) << (isReference ? xmlStringAttribute(PRESET, preset) : "")
        << xmlBoolAttribute("merge", !keysToSave.empty()) << xmlBoolAttribute(USE_KEY_UP_MOD, getUseKeyUpMod())
        << xmlCloseOpen() << '\n';
    const auto write = [&](const KeyConfiguration& configuration) { configuration.writeXml(out, indent + 1); };
    if (!isReference && keysToSave.empty()) {
        const auto iterator = getKeys().createIterator();
        while (const KeyConfiguration* configuration = iterator->next()) write(*configuration);
    } else if (!isReference) {
        for (const Key& key : keysToSave) {
            const KeyConfiguration* configuration = getKeys().findElement(key);
            write(configuration != nullptr ? *configuration : KeyConfiguration(key));
        }
    }
    out << tabs << xmlEndTag(getTag()) << '\n';
}

bool ComputerInputManager::loadPreset(const std::string& name)
{
    const XmlElement root = readPreset(name);
    if (!root.hasElement()) return false;
    currentPreset = isUtf8(name) ? name : "";
    if (currentPreset.empty())
        WindowsLib::DbgStream() << "the name of the preset " << name << " is not UTF-8, no program will refer to it";
    readXml(root);
    postToGui(GuiMessage::COMPUTER_INPUT_PRESET);
    return true;
}

bool ComputerInputManager::loadPresetInto(const std::string& name, KeyConfigurationMap& map, bool& useKeyUpModOut) const
{
    const XmlElement root = readPreset(name);
    if (!root.hasElement()) return false;
    KeyBindings bindings{.keys = std::move(map)};
    readKeys(root, bindings);
    map = std::move(bindings.keys);
    useKeyUpModOut = bindings.useKeyUpMod;
    return true;
}

bool ComputerInputManager::isPresetChanged(const std::string& name) const
{
    if (getPresets().findPreset(name).empty()) return false;
    KeyBindings stored;
    loadPresetInto(name, stored.keys, stored.useKeyUpMod);
    return !(stored == getContent());
}

void ComputerInputManager::renamePreset(const std::string& name, const std::string& newName)
{
    if (getPresets().rename(name, newName) && name == currentPreset) setCurrentPreset(std::string(Text::trim(newName)));
}

void ComputerInputManager::deletePreset(const std::string& name)
{
    if (getPresets().remove(name) && name == currentPreset) setCurrentPreset("");
}

void ComputerInputManager::setCurrentPreset(const std::string& name)
{
    currentPreset = name;
    notifyGuiOfChange();
}

void ComputerInputManager::setDefaults()
{
    currentPreset.clear();
    Section::setDefaults();
}

// --- edits

namespace
{
Key keyOf(RecordId id) { return Key::fromPacked(static_cast<std::uint32_t>(id)); }
}  // namespace

std::vector<RecordId> ComputerInputManager::getRecordIds() const
{
    std::vector<RecordId> ids =
        recordIds(getKeys(), [](const auto& key) { return static_cast<RecordId>(key.key.getPacked()); });
    ids.push_back(SECTION_RECORD);
    return ids;
}

std::string ComputerInputManager::writeRecord(RecordId id) const
{
    if (id != SECTION_RECORD) return textOf(getKeys().findElement(keyOf(id)));
    return xmlOpenTag(getTag()) + xmlStringAttribute(PRESET, currentPreset) +
           xmlBoolAttribute(USE_KEY_UP_MOD, getUseKeyUpMod()) + xmlCloseEmpty();
}

void ComputerInputManager::replaceRecord(RecordId id, const XmlElement& element)
{
    if (id != SECTION_RECORD) return addRecord(id, element);
    currentPreset = element.getAttribute(PRESET);
    setUseKeyUpMod(element.getBoolAttribute(USE_KEY_UP_MOD, false));
}

/// A key without a name, which no file can have, has its code from the id.
void ComputerInputManager::addRecord(RecordId id, const XmlElement& element)
{
    if (id == SECTION_RECORD) return;
    KeyConfiguration configuration = readKey(element);
    configuration.key = keyOf(id);
    edit().keys.put(std::move(configuration));
}

void ComputerInputManager::removeRecord(RecordId id)
{
    if (id != SECTION_RECORD) edit().keys.remove(keyOf(id));
}

// --- playing

void ComputerInputManager::keyEvent(const Key& key, bool isDown, bool isRepeat)
{
    const ButtonEvent event = !isDown ? ButtonEvent::up : isRepeat ? ButtonEvent::repeat : ButtonEvent::down;
    if (orv.getLearning().takeKey(key, event)) return;
    const std::shared_ptr<const KeyBindings> kept = bindingsOf(key.keyCode, event);
    const KeyBindings& bindings = kept ? *kept : getContent();
    const bool hasModifiers = isDown || bindings.useKeyUpMod;
    const KeyConfiguration* configuration = bindings.keys.findElement(hasModifiers ? key : Key{.keyCode = key.keyCode});
    if (configuration == nullptr) {
        if (!isDown) downRuns.forget(key.keyCode);
        return;
    }
    runButton(*configuration, event, downRuns, key.keyCode);
}

/// The bindings that a key keeps, null for those of the moment.
std::shared_ptr<const KeyBindings> ComputerInputManager::bindingsOf(std::int32_t keyCode, ButtonEvent event)
{
    if (event == ButtonEvent::down && keepsNotes() && !held.contains(keyCode)) {
        if (!latest.bindings || latest.revision != getRevision())
            latest = {getRevision(), std::make_shared<const KeyBindings>(getContent())};
        held[keyCode] = latest.bindings;
    }
    const auto found = held.find(keyCode);
    if (found == held.end()) return nullptr;
    const std::shared_ptr<const KeyBindings> bindings = found->second;
    if (event == ButtonEvent::up) held.erase(found);
    return bindings;
}

void ComputerInputManager::getNoteSpans(std::vector<FunctionNoteSpan>& result) const
{
    const auto iterator = getKeys().createIterator();
    while (const KeyConfiguration* configuration = iterator->next()) appendNoteSpans(*configuration, result);
}

// --- requests of the window

void ComputerInputManager::mergeKeyConfigurations(const std::vector<KeyConfiguration>& configurations, bool notify)
{
    for (const KeyConfiguration& configuration : configurations) edit().keys.put(configuration);
    updatePlaying();
    if (notify) postToGui(GuiMessage::KEY_CONFIGURATIONS, configurations);
    notifyGuiOfChange();
}

KeyConfiguration& ComputerInputManager::getOrCreate(const Key& key)
{
    KeyConfigurationMap& keys = edit().keys;
    if (keys.findElement(key) == nullptr) keys.put(KeyConfiguration(key));
    return *keys.findElement(key);
}

void ComputerInputManager::notifyGui() const
{
    postToGui(GuiMessage::COMPUTER_INPUT, getUseKeyUpMod(), getKeys());
    notifyGuiOfChange();
}

void ComputerInputManager::notifyGuiOfChange() const { postToGui(GuiMessage::COMPUTER_INPUT_CHANGED, currentPreset); }
}  // namespace Backend::ComputerInput
