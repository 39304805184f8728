#pragma once

#include <array>
#include <cassert>
#include <cstdint>
#include <numeric>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "backend/messages/PresetMessages.h"
#include "backend/sections/ProgramSection.h"

namespace Backend
{
/// The element of an item; empty for null.
template <class Item>
std::string textOf(const Item* item)
{
    std::ostringstream out;
    if (item != nullptr) item->writeXml(out, 0);
    return out.str();
}

/// The ids of all items of a collection.
template <class Collection, class IdOf>
std::vector<RecordId> recordIds(const Collection& collection, IdOf idOf)
{
    std::vector<RecordId> ids;
    const auto iterator = collection.createIterator();
    while (const auto* item = iterator->next()) ids.push_back(idOf(*item));
    return ids;
}

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

    void publishRecords() override { publish(); }

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

/// A section that is a list, of layers or oscillators.
template <class List, class Item, class Id>
class ListSection : public Section<List, Id>
{
public:
    using Section<List, Id>::Section;

    void writeXml(std::ostream& out, int indent, std::span<const Id> ids) const override
    {
        this->getContent().writeXml(out, indent, ids);
    }

    std::vector<RecordId> getRecordIds() const override
    {
        std::vector<RecordId> ids(this->getContent().size());
        std::iota(ids.begin(), ids.end(), 0);
        return ids;
    }
    std::string writeRecord(RecordId id) const override { return textOf(this->getContent().findElement(id)); }
    void replaceRecord(RecordId id, const XmlElement& element) override
    {
        if (Item* const item = this->edit().findElement(id)) replaceItem(*item, readItem(element, id));
    }
    void addRecord(RecordId id, const XmlElement& element) override { this->edit().insert(id, readItem(element, id)); }
    void removeRecord(RecordId id) override { this->edit().remove(id); }

protected:
    virtual Item readItem(const XmlElement& element, Id id) const = 0;
    /// Replaces an item by what was read, and keeps what is not stored.
    virtual void replaceItem(Item& item, Item read) = 0;
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
