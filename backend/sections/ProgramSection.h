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
#include "backend/xml/XmlElement.h"
#include "platform/Export.h"

namespace Backend
{
class MessageManager;

/// A section of a program, as the backend knows each of the seven: an element in programs, and with presets also in
/// files of its own. The backend thread's; in debug builds a change on another thread is asserted.
class ORV_API ProgramSection
{
public:
    /// A section without presets. The backend must outlive it.
    ProgramSection(OrvIF& backend, const char* elementName) : orv(backend), tag(elementName) {}
    /// A section with presets, whose root element is also its own in a program.
    ProgramSection(OrvIF& backend, const PresetSection& presetSection)
        : orv(backend), tag(presetSection.rootElement), presets(presetSection)
    {
    }
    virtual ~ProgramSection() = default;

    ProgramSection(const ProgramSection&) = delete;
    ProgramSection& operator=(const ProgramSection&) = delete;

    /// The name of the section's element.
    const char* getTag() const { return tag; }
    virtual MessageManager& getMessageManager() = 0;

    // Programs

    /// The section's element: what it holds replaces what is here, or with "merge" joins it. An element of another name
    /// changes nothing.
    virtual void loadSection(const XmlElement& section);
    /// Reads the element whatever its name, and publishes the section.
    virtual void readXml(const XmlElement& section) = 0;
    /// The element as a program holds it, one tag a line, indented by `indent` TABs.
    virtual void writeInProgram(std::ostream& out, int indent) const = 0;
    /// Empties the section, as a program without its element does.
    virtual void setDefaults() = 0;

    // Presets; a section without presets ignores them

    bool hasPresets() const { return presets.has_value(); }
    /// Only of a section with presets.
    PresetManager& getPresets() { return *presets; }
    const PresetManager& getPresets() const { return *presets; }

    /// Reads the preset as `loadSection` does. One that is missing, cannot be read or is another section's changes
    /// nothing.
    virtual void loadPreset(const std::string& name);
    virtual void renamePreset(const std::string& name, const std::string& newName);
    virtual void deletePreset(const std::string& name);

    /// Appends what the section's functions and translations can play in zones.
    virtual void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>&) const {}

    /// Sends the section to the window, if there is one.
    virtual void notifyGui() const = 0;

protected:
    /// The root element of a preset, or no element where `loadPreset` would change nothing.
    XmlElement readPreset(const std::string& name) const;
    /// Writes a preset with the element that `write` appends.
    void writePreset(const std::string& name, const std::function<void(std::ostream& out)>& write);

    /// Posts to the window, if there is one.
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
