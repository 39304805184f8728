#include "backend/sections/zones/ZoneMessageManager.h"

#include <array>

#include "backend/messages/Command.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/sections/zones/ZoneManager.h"

namespace Backend::Zones
{
namespace
{
enum Number : unsigned int {
    FIRST = 34968,
    SET_ZONE_TRANSPOSE = 34969,
    SELECT_ZONE = 34970,
    SET_SELECTED = 34971,
    LAST = 34972
};

constexpr auto COMMANDS = std::to_array<Command<ZoneManager>>({
    command<&ZoneManager::setZoneTranspose>(SET_ZONE_TRANSPOSE, "SetZoneTranspose"),
    command<&ZoneManager::selectZone>(SELECT_ZONE, "SelectZone"),
    command<&ZoneManager::setSelected>(SET_SELECTED, "SetSelected"),
});
}  // namespace

ZoneMessageManager::ZoneMessageManager(MessageManagerMaster& managerMaster, ZoneManager& zoneManager)
    : MessageManager(managerMaster), manager(zoneManager)
{
}

bool ZoneMessageManager::wantMessage(unsigned int message) const { return message >= FIRST && message <= LAST; }

void ZoneMessageManager::handleMessage(Message& message) { carryOut<ZoneManager>(COMMANDS, manager, message); }

void ZoneMessageManager::postSetZoneTranspose(int id, int transpose)
{
    master.post(pack(SET_ZONE_TRANSPOSE, id, transpose));
}

void ZoneMessageManager::postSelectZone(const SelectType& select) { master.post(pack(SELECT_ZONE, select)); }

void ZoneMessageManager::postSetSelected(const std::vector<ZoneId>& ids) { master.post(pack(SET_SELECTED, ids)); }
}  // namespace Backend::Zones
