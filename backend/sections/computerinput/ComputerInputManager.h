#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <vector>

#include "backend/files/PresetManager.h"
#include "backend/messages/ComputerInputMessageManager.h"
#include "backend/model/KeyConfigurationMap.h"
#include "platform/Export.h"

namespace Backend
{
class OrvIF;
}

namespace Backend::ComputerInput
{
/// The authority over what the computer's keys do: it reads and writes the program's section, finds what a key is bound
/// to and runs it, and tells the window of every change. The backend thread's own.
class ORV_API ComputerInputManager
{
public:
    ComputerInputManager(OrvIF& backend, MessageManagerMaster& master);

    const KeyConfigurationMap& getKeys() const { return keys; }
    /// Whether a key is released with the modifiers that are held then; otherwise its release has none.
    bool getUseKeyUpMod() const { return useKeyUpMod; }
    void setUseKeyUpMod(bool on) { useKeyUpMod = on; }
    /// The preset that the keys came from, empty if none. They may have changed since.
    const std::string& getCurrentPreset() const { return currentPreset; }

    ComputerInputMessageManager& getMessageManager() { return messageManager; }
    PresetManager& getPresets() { return presets; }

    // Files

    /// A "ComputerInput" element: the keys in it replace those here, or with "merge" join them, the last of a key
    /// counting. One that names a preset is that preset instead; where that is missing the keys stay as they are, of no
    /// preset. An element of another name is ignored.
    void loadSection(const XmlElement& section);

    /// The element, one tag a line behind `indent` TABs: the keys of `keysToSave`, to be merged, those without a
    /// configuration as unbound ones; or without any, all keys. While the keys are those of the current preset, or its
    /// file is gone, its name is written in place of the keys, unless `forceInline`.
    void writeSection(std::ostream& out, int indent, std::span<const Key> keysToSave, bool forceInline) const;

    /// A preset that is missing, or holds no such section, changes nothing.
    void loadPreset(const std::string& name);
    /// Adds a preset's keys to `map`, in place of them unless the preset is to be merged, and reads its option. False,
    /// and nothing changed, as above.
    bool loadPresetInto(const std::string& name, KeyConfigurationMap& map, bool& useKeyUpModOut) const;
    /// See `writeSection`; a preset holds its keys itself.
    void savePreset(const std::string& name, const std::vector<Key>& keysToSave);
    /// Whether the keys are others than those of a preset. Of a preset that is gone nobody knows; that is no.
    bool isPresetChanged(const std::string& name) const;
    void renamePreset(const std::string& name, const std::string& newName);
    void deletePreset(const std::string& name);

    /// No keys, released without modifiers, of no preset.
    void setDefaults();

    // Playing

    /// Runs the functions of a key, in order. A repeat runs only the down functions that are to be sent again.
    void keyEvent(const Key& key, bool isDown, bool isRepeat);
    void keyDown(const Key& key, bool isRepeat) { keyEvent(key, true, isRepeat); }
    void keyUp(const Key& key) { keyEvent(key, false, false); }

    /// Appends what every function of every key plays in a zone.
    void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const;

    // From the window

    /// Each takes the place of the configuration of its key. With `notifyGui` the window gets them back.
    void mergeKeyConfigurations(const std::vector<KeyConfiguration>& configurations, bool notifyGui);

    /// A key's configuration; an unbound one if it had none. It lives until the key's configuration is replaced.
    KeyConfiguration& getOrCreate(const Key& key);

    /// Tells the window what the keys do.
    void refreshGui() const;

private:
    bool readSection(const XmlElement& section, KeyConfigurationMap& map, bool& useKeyUpModOut) const;
    void publish();
    void tellGuiOfChange() const;
    void tellGui(Message message) const;

    OrvIF& orv;
    KeyConfigurationMap keys;
    bool useKeyUpMod = false;
    PresetManager presets;
    ComputerInputMessageManager messageManager;
    std::string currentPreset;
};
}  // namespace Backend::ComputerInput
