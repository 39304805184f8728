#pragma once

#include <vector>

#include "backend/messages/MessageManagerMaster.h"
#include "backend/messages/TypedMessage.h"
#include "backend/model/Zone.h"
#include "backend/values/SelectType.h"
#include "platform/Export.h"

namespace Backend::Zones
{
namespace ZoneMessage
{
inline constexpr MessageRange RANGE{34968, 34972};

inline constexpr TypedMessage<int, int> SET_ZONE_TRANSPOSE{34969, "SetZoneTranspose"};
inline constexpr TypedMessage<SelectType> SELECT_ZONE{34970, "SelectZone"};
inline constexpr TypedMessage<std::vector<ZoneId>> SET_SELECTED{34971, "SetSelected"};
}  // namespace ZoneMessage

/// The commands of the zones section. Any thread but the time slice.
class ORV_API ZoneMessageManager final : public MessageManager
{
public:
    ZoneMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : MessageManager(managerMaster, ZoneMessage::RANGE, std::move(handler))
    {
    }

    void postSetZoneTranspose(int id, int transpose) { master.post(ZoneMessage::SET_ZONE_TRANSPOSE(id, transpose)); }

    void postSelectZone(const SelectType& select) { master.post(ZoneMessage::SELECT_ZONE(select)); }

    void postSetSelected(const std::vector<ZoneId>& ids) { master.post(ZoneMessage::SET_SELECTED(ids)); }
};
}  // namespace Backend::Zones
