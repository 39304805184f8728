#pragma once

#include <string>
#include <vector>

#include "backend/messages/MessageManager.h"
#include "backend/model/KeyConfiguration.h"
#include "platform/Export.h"

namespace Backend::ComputerInput
{
class ComputerInputManager;

/// What the window asks of the keys, and the keys themselves. Any thread but the time slice. Configurations travel as
/// copies.
class ORV_API ComputerInputMessageManager final : public MessageManager
{
public:
    ComputerInputMessageManager(MessageManagerMaster& master, ComputerInputManager& computerInputManager);

    bool wantMessage(unsigned int message) const override;
    void handleMessage(Message& message) override;

    void postSetKeyConfigurations(const std::vector<KeyConfiguration>& configurations, bool notifyGui);
    void postSetUseKeyUpMod(bool on);
    void postLoadPreset(const std::string& name);
    void postRenamePreset(const std::string& name, const std::string& newName);
    void postDeletePreset(const std::string& name);
    void postSavePreset(const std::string& name, const std::vector<Key>& keysToSave);

    /// A key goes in its packed form, in the message itself.
    void postKeyDown(const Key& key, bool isRepeat);
    void postKeyUp(const Key& key);

private:
    ComputerInputManager& manager;
};
}  // namespace Backend::ComputerInput
