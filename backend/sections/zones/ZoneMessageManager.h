#pragma once

#include <vector>

#include "backend/messages/MessageManager.h"
#include "backend/model/Zone.h"
#include "backend/values/SelectType.h"
#include "platform/Export.h"

namespace Backend::Zones
{
class ZoneManager;

/// What the window asks of the zones. Any thread but the time slice.
class ORV_API ZoneMessageManager final : public MessageManager
{
public:
    ZoneMessageManager(MessageManagerMaster& master, ZoneManager& zoneManager);

    bool wantMessage(unsigned int message) const override;
    void handleMessage(Message& message) override;

    void postSetZoneTranspose(int id, int transpose);
    void postSelectZone(const SelectType& select);
    void postSetSelected(const std::vector<ZoneId>& ids);

private:
    ZoneManager& manager;
};
}  // namespace Backend::Zones
