#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "api/OrvIF.h"
#include "backend/files/PresetManager.h"
#include "backend/messages/TypedMessage.h"
#include "backend/model/FunctionNoteSpan.h"
#include "backend/sections/Records.h"
#include "backend/xml/XmlElement.h"
#include "platform/Export.h"

namespace Backend
{
class MessageManager;

/// A section of a program, with what all seven sections have in common: an element in program files and, for a section
/// with presets, preset files of its own. The backend thread's; debug builds assert that no other thread changes it.
class ORV_API ProgramSection : public Records
{
public:
    /// A section without presets. The backend must outlive it.
    ProgramSection(OrvIF& backend, const char* elementName) : orv(backend), tag(elementName) {}
    /// A section with presets. The root element of its presets is also its element in a program.
    ProgramSection(OrvIF& backend, const PresetSection& presetSection)
        : orv(backend), tag(presetSection.rootElement), presets(presetSection)
    {
    }
    ProgramSection(const ProgramSection&) = delete;
    ProgramSection& operator=(const ProgramSection&) = delete;

    /// The name of the section's element.
    const char* getTag() const { return tag; }
    virtual MessageManager& getMessageManager() = 0;

    // Programs

    /// Reads the section's element: its content replaces the present one, or with "merge" is added to it. An element of
    /// another name changes nothing.
    virtual void loadSection(const XmlElement& section);
    /// Reads an element of any name, and publishes the section.
    virtual void readXml(const XmlElement& section) = 0;
    /// Writes the element as a program holds it, one tag a line, indented by `indent` TABs.
    virtual void writeInProgram(std::ostream& out, int indent) const = 0;
    /// Empties the section, as a program without its element does.
    virtual void setDefaults() = 0;

    // Presets; ignored by a section without presets

    bool hasPresets() const { return presets.has_value(); }
    /// Only of a section with presets.
    PresetManager& getPresets() { return *presets; }
    const PresetManager& getPresets() const { return *presets; }

    /// Called when the whole section was saved as a preset.
    std::function<void(const std::string& name)> onSaved;

    /// Reads a preset as `loadSection` does. False, and nothing is changed, if it is missing, cannot be read or belongs
    /// to another section.
    virtual bool loadPreset(const std::string& name);
    /// The same with the path of a file in any folder, which the list of presets does not have.
    bool loadPresetFile(const std::string& path);
    virtual void renamePreset(const std::string& name, const std::string& newName);
    virtual void deletePreset(const std::string& name);

    /// Appends the notes that the section's functions and translations can play in zones.
    /// What its notes count as, of `FunctionManagement::NoteSource`.
    virtual std::uint8_t getNoteSource() const { return 0; }
    virtual void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>&) const {}

    /// Sends the section to the window, if there is one.
    virtual void notifyGui() const = 0;

protected:
    /// Whether held notes ring on over changes.
    bool keepsNotes() const;

    /// The root element of a preset, or no element if `loadPreset` would change nothing.
    XmlElement readPreset(const std::string& name) const;
    XmlElement readPresetFile(const std::string& path) const;
    /// Writes a preset with the element that `write` appends.
    void writePreset(const std::string& name, const std::function<void(std::ostream& out)>& write);

    /// Posts a message to the window, if there is one.
    template <class... Arguments>
    void postToGui(const TypedMessage<Arguments...>& message, const std::type_identity_t<Arguments>&... arguments) const
    {
        notify(orv.getGuiWindowHandle(), message, arguments...);
    }

    /// Whether the calling thread may change the section.
    bool isOnBackendThread() const;

    OrvIF& orv;

private:
    const char* tag;
    std::optional<PresetManager> presets;
};
}  // namespace Backend
