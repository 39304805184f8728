#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "backend/engine/ControlUpdates.h"
#include "backend/messages/MessageManager.h"
#include "platform/Export.h"

namespace Backend::Controls
{
class ControlManager;

/// What the window and the time slices ask of the controls. Any thread; time slices have `getUpdates`.
class ORV_API ControlMessageManager final : public MessageManager
{
public:
    ControlMessageManager(MessageManagerMaster& master, ControlManager& controlManager);

    bool wantMessage(unsigned int message) const override;
    void handleMessage(Message& message) override;

    /// The time slices' way here. Lives as long as this does.
    ControlUpdates& getUpdates() { return updates; }

    void postSetControls(const std::vector<Control>& changed, bool notifyGui, bool deleteMissing);
    void postLoadPreset(const std::string& name);
    void postRenamePreset(const std::string& name, const std::string& newName);
    void postDeletePreset(const std::string& name);
    void postSavePreset(const std::string& name, const std::vector<Cell>& cells);
    /// The user moves a control; without one at that cell nothing happens.
    void postSetValue(const Cell& cell, std::int32_t value);
    void postSetSelected(const Cell& cell, bool selected);

private:
    ControlManager& manager;
    ControlUpdates updates;
};
}  // namespace Backend::Controls
