#pragma once

#include <iosfwd>
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
/// What the computer's keys do: reads and writes the program's section, finds what a key is bound to and runs it, and
/// notifies the window of every change. The backend thread's.
class ORV_API ComputerInputManager final : public Section<KeyBindings, Key>
{
public:
    ComputerInputManager(OrvIF& backend, MessageManagerMaster& master);

    const KeyConfigurationMap& getKeys() const { return getContent().keys; }
    bool getUseKeyUpMod() const { return getContent().useKeyUpMod; }
    void setUseKeyUpMod(bool on) { edit().useKeyUpMod = on; }
    /// The preset that the keys came from, empty if none. They may have changed since.
    const std::string& getCurrentPreset() const { return currentPreset; }

    ComputerInputMessageManager& getMessageManager() override { return messageManager; }

    // Files

    /// A section that names a preset is that preset; where it cannot be loaded the keys stay as they are, of no preset.
    void loadSection(const XmlElement& section) override;

    /// The element with the keys of `keysToSave`, to be merged, those without a configuration as unbound ones; or
    /// without any, all keys. While the keys are those of the current preset's file, and the file replaces and does not
    /// merge, the preset's name is written instead of them, unless `forceInline`.
    void writeSection(std::ostream& out, int indent, std::span<const Key> keysToSave, bool forceInline) const;
    void writeXml(std::ostream& out, int indent, std::span<const Key> keysToSave) const override
    {
        writeSection(out, indent, keysToSave, true);
    }
    void writeInProgram(std::ostream& out, int indent) const override { writeSection(out, indent, {}, false); }

    /// The preset becomes the current one. One whose name is not UTF-8, which no program can name, is loaded only.
    void loadPreset(const std::string& name) override;
    /// Adds a preset's keys to `map`, in place of them unless the preset is to be merged, and reads its option. False,
    /// and nothing changed, if it cannot be loaded.
    bool loadPresetInto(const std::string& name, KeyConfigurationMap& map, bool& useKeyUpModOut) const;
    /// Whether the keys are others than those of a preset; false if it is missing.
    bool isPresetChanged(const std::string& name) const;
    /// The current preset keeps its keys under its new name; without its file there is no current preset.
    void renamePreset(const std::string& name, const std::string& newName) override;
    void deletePreset(const std::string& name) override;

    /// No keys, released without modifiers, of no preset.
    void setDefaults() override;

    // Playing

    /// Runs the functions of a key, in order. A repeat runs only the down functions that are to be sent again.
    void keyEvent(const Key& key, bool isDown, bool isRepeat);
    void keyDown(const Key& key, bool isRepeat) { keyEvent(key, true, isRepeat); }
    void keyUp(const Key& key) { keyEvent(key, false, false); }

    void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const override;

    // Requests of the window

    /// Each takes the place of the configuration of its key. With `notify` the window gets them back.
    void mergeKeyConfigurations(const std::vector<KeyConfiguration>& configurations, bool notify);

    /// A key's configuration; an unbound one if it had none. It lives until the key's configuration is replaced.
    KeyConfiguration& getOrCreate(const Key& key);

    void notifyGui() const override;

private:
    void readContent(const XmlElement& section, KeyBindings& into) override { readKeys(section, into); }
    void readKeys(const XmlElement& section, KeyBindings& into) const;
    void updatePlaying() override { orv.updateZones(); }
    bool isStoredIn(const std::string& preset) const;
    void setCurrentPreset(const std::string& name);
    void notifyGuiOfChange() const;

    DownRuns downRuns;  // by key code
    ComputerInputMessageManager messageManager;
    std::string currentPreset;
};
}  // namespace Backend::ComputerInput
