#pragma once

#include <array>
#include <cassert>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "backend/messages/PresetMessages.h"
#include "backend/sections/ProgramSection.h"

namespace Backend
{
/// A section whose items, each with an `Id`, are held in a `Content`. A derived section says how its content is read
/// and written, and what of it is published. Each change starts with `edit` and ends with `publish`, or with a message
/// that has only the change.
template <class Content, class Id>
class Section : public ProgramSection
{
public:
    using ProgramSection::ProgramSection;

    void readXml(const XmlElement& section) override
    {
        readContent(section, edit());
        publish();
    }

    /// Writes the element with the items of `ids`, marked to be merged when it is read; without ids, with all items.
    virtual void writeXml(std::ostream& out, int indent, std::span<const Id> ids) const = 0;
    void writeInProgram(std::ostream& out, int indent) const override { writeXml(out, indent, {}); }

    /// See `PresetManager::save` and `writeXml`.
    void savePreset(const std::string& name, const std::vector<Id>& ids)
    {
        writePreset(name, [&](std::ostream& out) { writeXml(out, 0, ids); });
    }

    void setDefaults() override
    {
        edit().clear();
        publish();
    }

protected:
    const Content& getContent() const { return content; }

    /// The content, to be changed. Every change starts here.
    Content& edit()
    {
        assert(isOnBackendThread());
        ++revision;
        return content;
    }
    /// Grows with every change.
    std::uint64_t getRevision() const { return revision; }

    /// Reads the children of a section's element, and whether they are to be merged.
    virtual void readContent(const XmlElement& section, Content& into) = 0;

    /// Passes the content to the part of the backend that plays it.
    virtual void updatePlaying() = 0;

    /// Passes the content to what plays it and, unless `redraw` is false, to the window.
    void publish(bool redraw = true)
    {
        updatePlaying();
        if (redraw) notifyGui();
    }

private:
    Content content;
    std::uint64_t revision = 0;
};

/// The rows of the message table for the preset commands of `Messages`, see `PresetMessages`.
template <class Manager, class Messages>
constexpr auto presetCommands()
{
    return std::array{on<Messages::LOAD_PRESET, &Manager::loadPreset, Manager>(),
                      on<Messages::RENAME_PRESET, &Manager::renamePreset, Manager>(),
                      on<Messages::DELETE_PRESET, &Manager::deletePreset, Manager>(),
                      on<Messages::SAVE_PRESET, &Manager::savePreset, Manager>()};
}
}  // namespace Backend
