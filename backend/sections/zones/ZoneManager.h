#pragma once

#include <cstdint>
#include <iosfwd>
#include <span>
#include <vector>

#include "backend/messages/GuiMessages.h"
#include "backend/messages/ZoneMessageManager.h"
#include "backend/model/FunctionNoteSpan.h"
#include "backend/model/ZoneMap.h"
#include "backend/sections/Section.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectType.h"
#include "platform/Export.h"

namespace Backend::Zones
{
/// The zones of the program. Changes are published to the engine and the window. The backend thread's.
class ORV_API ZoneManager final : public Section<ZoneMap, ZoneId>
{
public:
    ZoneManager(OrvIF& backend, MessageManagerMaster& master);

    const ZoneMap& getZones() const { return getContent(); }
    ZoneMessageManager& getMessageManager() override { return messageManager; }
    void notifyGui() const override { postToGui(GuiMessage::ZONES, getContent()); }

    /// Writes all zones, whatever `ids` are.
    void writeXml(std::ostream& out, int indent, std::span<const ZoneId> ids) const override;

    // A zone is added and removed by undo and redo of what made it, after the inputs have determined the zones.

    std::vector<RecordId> getRecordIds() const override;
    std::string writeRecord(RecordId id) const override;
    void replaceRecord(RecordId id, const XmlElement& element) override;
    void addRecord(RecordId id, const XmlElement& element) override;
    void removeRecord(RecordId id) override;
    void publishRecords() override;

    /// Determines which zones exist, and their notes, from those of the inputs, in the order of `spans`. A zone without
    /// notes is removed, with its transposition; if it was the selected one, the lowest zone is selected.
    void updateZones(std::span<const FunctionManagement::FunctionNoteSpan> spans);

    /// Extends the zone of the span, or adds it. Does not publish.
    void mergeSpan(const FunctionManagement::FunctionNoteSpan& span);

    /// Transposes an existing zone; only the low 8 bits count. Held notes keep their note-offs.
    void setZoneTranspose(int id, int transpose);

    /// Transposes all zones, that of an id, or with any other kind the selected one.
    void changeTranspose(const SelectType& select, const RelativeFixedValue& value);

    /// Selects the next zone up or down, past gaps, or that of an id; with an unknown id none is selected.
    void selectZone(const SelectType& select);
    void setSelected(const std::vector<ZoneId>& ids);

private:
    Zone* findZone(RecordId id);
    template <class Visit>
    void forEachZone(Visit&& visit);
    Zone* findSelected();
    Zone* findFrom(int start, int step);
    void selectOnly(Zone* zone);
    /// The zones stay; they get the transpositions of the element, or none. The lowest zone becomes
    /// the selected one.
    void readContent(const XmlElement& section, ZoneMap& into) override;
    void updatePlaying() override;

    bool isMapEdited = false;
    ZoneMessageManager messageManager;
};
}  // namespace Backend::Zones
