#include "backend/sections/zones/ZoneManager.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <utility>

#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Zones
{
using FunctionManagement::FunctionNoteSpan;
using MidiEngine::Note;

namespace
{
constexpr int HIGHEST_ZONE = 127;
constexpr ZoneId NO_ZONE = -1;

void writeZone(std::ostream& out, const Zone& zone)
{
    out << xmlOpenTag("Zone") << xmlCharAttribute("id", zone.id) << xmlCharAttribute("transpose", zone.transpose)
        << xmlCloseEmpty();
}

constexpr auto COMMANDS = std::to_array<Command<ZoneManager>>({
    on<ZoneMessage::SET_ZONE_TRANSPOSE, &ZoneManager::setZoneTranspose>(),
    on<ZoneMessage::SELECT_ZONE, &ZoneManager::selectZone>(),
    on<ZoneMessage::SET_SELECTED, &ZoneManager::setSelected>(),
});
}  // namespace

ZoneManager::ZoneManager(OrvIF& backend, MessageManagerMaster& master)
    : Section(backend, "Zones"),
      messageManager(master, [this](Message& message) { execute<ZoneManager>(COMMANDS, *this, message); })
{
}

template <class Visit>
void ZoneManager::forEachZone(Visit&& visit)
{
    const auto iterator = edit().createIterator();
    while (Zone* zone = iterator->next()) visit(*zone);
}

// --- files

void ZoneManager::readContent(const XmlElement& section, ZoneMap& zones)
{
    forEachZone([](Zone& zone) { zone.transpose = 0; });
    forEachElement(section, [&zones](const XmlElement& child) {
        if (child.getTagName() != "Zone") return;
        const auto id = ZoneId{child.getByteAttribute("id", 0)};
        const auto transpose = child.getByteAttribute("transpose", 0);
        if (Zone* zone = zones.findElement(id))
            zone->transpose = transpose;
        else
            zones.put(id, {.id = id, .transpose = transpose});
    });
    selectOnly(findFrom(-1, 1));
}

void ZoneManager::writeXml(std::ostream& out, int indent, std::span<const ZoneId>) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag(getTag()) << xmlBoolAttribute("merge", false) << xmlCloseOpen() << '\n';
    const auto iterator = getContent().createIterator();
    while (const Zone* zone = iterator->next()) {
        out << tabs << '\t';
        writeZone(out, *zone);
        out << '\n';
    }
    out << tabs << xmlEndTag(getTag()) << '\n';
}

// --- edits

std::vector<RecordId> ZoneManager::getRecordIds() const
{
    return recordIds(getContent(), [](const Zone& zone) { return zone.id; });
}

std::string ZoneManager::writeRecord(RecordId id) const
{
    std::ostringstream out;
    const bool isZone = id >= 0 && id <= HIGHEST_ZONE;
    if (const Zone* const zone = isZone ? getContent().findElement(static_cast<ZoneId>(id)) : nullptr)
        writeZone(out, *zone);
    return out.str();
}

void ZoneManager::replaceRecord(RecordId id, const XmlElement& element)
{
    setZoneTranspose(id, element.getByteAttribute("transpose", 0));
}

/// An input section may have added it already, with its notes.
void ZoneManager::addRecord(RecordId id, const XmlElement& element)
{
    if (findZone(id) != nullptr) return replaceRecord(id, element);
    if (id < 0 || id > HIGHEST_ZONE) return;
    const auto zone = static_cast<ZoneId>(id);
    edit().put(zone, {.id = zone, .transpose = element.getByteAttribute("transpose", 0)});
    isMapEdited = true;
}

void ZoneManager::removeRecord(RecordId id)
{
    if (findZone(id) == nullptr) return;
    edit().remove(static_cast<ZoneId>(id));
    isMapEdited = true;
}

void ZoneManager::publishRecords()
{
    if (std::exchange(isMapEdited, false)) publish();
}

Zone* ZoneManager::findZone(RecordId id)
{
    return id >= 0 && id <= HIGHEST_ZONE ? edit().findElement(static_cast<ZoneId>(id)) : nullptr;
}

// --- what exists

void ZoneManager::updateZones(std::span<const FunctionNoteSpan> spans)
{
    const Zone* const selected = findSelected();
    const ZoneId selectedId = selected != nullptr ? selected->id : NO_ZONE;
    forEachZone([](Zone& zone) {
        zone.lowNote = zone.highNote = Note();
        zone.sources = 0;
    });
    for (const FunctionNoteSpan& span : spans)
        if (span.isPlayed()) mergeSpan(span);
    forEachZone([this](const Zone& zone) {
        if (!zone.lowNote.isNote() || !zone.highNote.isNote()) edit().remove(ZoneId{zone.id});
    });

    Zone* const kept = edit().findElement(selectedId);
    selectOnly(kept != nullptr ? kept : findFrom(-1, 1));
    publish();
}

void ZoneManager::mergeSpan(const FunctionNoteSpan& span)
{
    if (span.zone < 0 || span.zone > HIGHEST_ZONE) return;
    const auto id = static_cast<ZoneId>(span.zone);
    Zone* const zone = edit().findElement(id);
    if (zone == nullptr)
        return edit().put(id, {.id = id, .lowNote = span.lowNote, .highNote = span.highNote, .sources = span.sources});
    zone->sources |= span.sources;
    const auto number = [](Note note) { return note.getNumber(); };
    if (!zone->lowNote.isNote() || number(zone->lowNote) > number(span.lowNote)) zone->lowNote = span.lowNote;
    if (number(zone->highNote) < number(span.highNote)) zone->highNote = span.highNote;
}

// --- operations

void ZoneManager::setZoneTranspose(int id, int transpose)
{
    Zone* const zone = findZone(id);
    if (zone == nullptr) return;
    zone->transpose = static_cast<std::int8_t>(transpose);
    orv.getMidiEngineMessageManager().postSetZone(*zone);
    postToGui(GuiMessage::ZONE_TRANSPOSE, zone->id, zone->transpose);
}

void ZoneManager::changeTranspose(const SelectType& select, const RelativeFixedValue& value)
{
    const auto change = [&](const Zone& zone) {
        setZoneTranspose(zone.id, static_cast<int>(value.appliedTo(zone.transpose)));
    };
    if (select.kind == SelectType::Kind::all) return forEachZone(change);
    const bool inRange = select.value >= 0 && select.value <= HIGHEST_ZONE;
    const Zone* zone = select.kind != SelectType::Kind::specific ? findSelected()
                       : inRange                                 ? edit().findElement(static_cast<ZoneId>(select.value))
                                                                 : nullptr;
    if (zone != nullptr) change(*zone);
}

Zone* ZoneManager::findSelected()
{
    Zone* selected = nullptr;
    forEachZone([&](Zone& zone) {
        if (zone.selected && selected == nullptr) selected = &zone;
    });
    return selected;
}

/// The next existing zone after `start` in steps of `step`, or null.
Zone* ZoneManager::findFrom(int start, int step)
{
    for (int id = start + step; step != 0 && id >= 0 && id <= HIGHEST_ZONE; id += step)
        if (Zone* zone = edit().findElement(static_cast<ZoneId>(id))) return zone;
    return nullptr;
}

void ZoneManager::selectOnly(Zone* chosen)
{
    forEachZone([&](Zone& zone) { zone.selected = &zone == chosen; });
}

void ZoneManager::selectZone(const SelectType& select)
{
    Zone* const selected = findSelected();
    Zone* target = nullptr;
    if (select.kind == SelectType::Kind::specific) {
        if (select.value >= 0 && select.value <= HIGHEST_ZONE)
            target = edit().findElement(static_cast<ZoneId>(select.value));
    } else {
        const int step = select.kind == SelectType::Kind::up ? 1 : select.kind == SelectType::Kind::down ? -1 : 0;
        target = findFrom(selected != nullptr ? selected->id : -1, step);
        if (target == nullptr) return;
    }
    const auto setSelected = [&](Zone& zone, bool on) {
        zone.selected = on;
        postToGui(GuiMessage::ZONE_SELECTED, zone.id, on);
    };
    if (selected != nullptr) setSelected(*selected, false);
    if (target != nullptr) setSelected(*target, true);
}

void ZoneManager::setSelected(const std::vector<ZoneId>& ids)
{
    forEachZone([&](Zone& zone) { zone.selected = std::ranges::find(ids, zone.id) != ids.end(); });
}

// --- publishing

void ZoneManager::updatePlaying()
{
    std::vector<Zone> copy;
    forEachZone([&](const Zone& zone) { copy.push_back(zone); });
    orv.getMidiEngineMessageManager().postSetZoneMap(std::move(copy));
}
}  // namespace Backend::Zones
