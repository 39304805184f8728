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

    /// All zones, whatever the ids.
    void writeXml(std::ostream& out, int indent, std::span<const ZoneId> ids) const override;

    /// Works out anew which zones exist and which notes are played in them, from what the inputs play, in the order of
    /// `spans`. A zone that none plays in goes, with its transposition; the selected one stays so, or the lowest is.
    void updateZones(std::span<const FunctionManagement::FunctionNoteSpan> spans);

    /// Widens the zone of the span's number, or adds one. Not published.
    void mergeSpan(const FunctionManagement::FunctionNoteSpan& span);

    /// Of a zone that exists; the low 8 bits count. A note that is held keeps its note off.
    void setZoneTranspose(int id, int transpose);

    /// All zones, the one of that number, or with any other kind the selected one.
    void changeTranspose(const SelectType& select, const RelativeFixedValue& value);

    /// The next zone up or down, past gaps, or the one of that number; an unknown number leaves none selected.
    void selectZone(const SelectType& select);
    void setSelected(const std::vector<ZoneId>& ids);

private:
    template <class Visit>
    void forEachZone(Visit&& visit);
    Zone* findSelected();
    Zone* findFrom(int start, int step);
    void selectOnly(Zone* zone);
    /// The zones that are here stay, with the transpositions of the element or none; the lowest zone becomes the
    /// selected one.
    void readContent(const XmlElement& section, ZoneMap& into) override;
    void updatePlaying() override;

    ZoneMessageManager messageManager;
};
}  // namespace Backend::Zones
