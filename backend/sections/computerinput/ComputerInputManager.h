#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "backend/messages/ComputerInputMessageManager.h"
#include "backend/model/KeyBindings.h"
#include "backend/sections/Section.h"
#include "backend/sections/computerinput/ButtonEvent.h"
#include "platform/Export.h"

namespace Backend::ComputerInput
{
/// The bindings of the computer's keys: reads and writes the section, executes what a key is bound to, and notifies the
/// window of every change. The backend thread's. See docs/behaviour/programs-and-banks.md for key presets in programs.
class ORV_API ComputerInputManager final : public Section<KeyBindings, Key>
{
public:
    ComputerInputManager(OrvIF& backend, MessageManagerMaster& master);

    const KeyConfigurationMap& getKeys() const { return getContent().keys; }
    bool getUseKeyUpMod() const { return getContent().useKeyUpMod; }
    void setUseKeyUpMod(bool on) { edit().useKeyUpMod = on; }
    /// The preset from which the keys were loaded, empty if none. They may have been changed since.
    const std::string& getCurrentPreset() const { return currentPreset; }

    ComputerInputMessageManager& getMessageManager() override { return messageManager; }

    // Files

    /// Reads the keys, or loads the preset that the element names. If that fails, the keys stay, of no preset.
    void loadSection(const XmlElement& section) override;

    /// Writes the element with the keys of `keysToSave`, marked to be merged; a key without a configuration is written
    /// as unbound. Without `keysToSave`, all keys are written, or only the name of the current preset if its file holds
    /// exactly these keys and does not merge. With `forceInline` the keys are always written.
    void writeSection(std::ostream& out, int indent, std::span<const Key> keysToSave, bool forceInline) const;
    void writeXml(std::ostream& out, int indent, std::span<const Key> keysToSave) const override
    {
        writeSection(out, indent, keysToSave, true);
    }
    void writeInProgram(std::ostream& out, int indent) const override { writeSection(out, indent, {}, false); }

    /// Makes the preset the current one, unless its name is not UTF-8, which no program can hold.
    bool loadPreset(const std::string& name) override;
    /// Adds the keys of a preset to `map`, in place of the present ones unless the preset merges, and reads its option.
    /// False, and nothing is changed, if it cannot be loaded.
    bool loadPresetInto(const std::string& name, KeyConfigurationMap& map, bool& useKeyUpModOut) const;
    /// Whether the keys differ from those of a preset; false if there is no such preset.
    bool isPresetChanged(const std::string& name) const;
    /// A current preset stays the current one under its new name, if its file could be renamed.
    void renamePreset(const std::string& name, const std::string& newName) override;
    void deletePreset(const std::string& name) override;

    /// Removes all keys and the current preset; keys are released without modifiers.
    void setDefaults() override;

    // Edits

    std::vector<RecordId> getRecordIds() const override;
    std::string writeRecord(RecordId id) const override;
    void replaceRecord(RecordId id, const XmlElement& element) override;
    void addRecord(RecordId id, const XmlElement& element) override;
    void removeRecord(RecordId id) override;

    // Playing

    /// Executes the functions of a key, in order; a repeat only the down functions that are marked to be sent again.
    /// While held notes are kept, a key that is down keeps the bindings that it met, until it is up.
    void keyEvent(const Key& key, bool isDown, bool isRepeat);
    void keyDown(const Key& key, bool isRepeat) { keyEvent(key, true, isRepeat); }
    void keyUp(const Key& key) { keyEvent(key, false, false); }

    std::uint8_t getNoteSource() const override { return FunctionManagement::NoteSource::KEYS; }
    void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const override;

    // Requests of the window

    /// Each replaces the configuration of its key. With `notify` they are sent back to the window.
    void mergeKeyConfigurations(const std::vector<KeyConfiguration>& configurations, bool notify);

    /// The configuration of a key; an unbound one is added if there is none. Valid until that of the key is replaced.
    KeyConfiguration& getOrCreate(const Key& key);

    void notifyGui() const override;

private:
    void readContent(const XmlElement& section, KeyBindings& into) override { readKeys(section, into); }
    void readKeys(const XmlElement& section, KeyBindings& into) const;
    KeyConfiguration readKey(const XmlElement& element) const;
    void updatePlaying() override { orv.updateZones(); }
    bool isStoredIn(const std::string& preset) const;
    void setCurrentPreset(const std::string& name);
    std::shared_ptr<const KeyBindings> bindingsOf(std::int32_t keyCode, ButtonEvent event);
    void notifyGuiOfChange() const;

    struct Snapshot {
        std::uint64_t revision = 0;
        std::shared_ptr<const KeyBindings> bindings;
    };

    DownRuns downRuns;  // by key code
    Snapshot latest;
    std::map<std::int32_t, std::shared_ptr<const KeyBindings>> held;  // while notes are kept, by key code
    ComputerInputMessageManager messageManager;
    std::string currentPreset;
};
}  // namespace Backend::ComputerInput
