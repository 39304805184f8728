#pragma once

#include <string>
#include <vector>

#include "backend/messages/MessageManager.h"
#include "backend/model/MidiEventConfiguration.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
class MidiInputManager;

/// What the window asks of the translations of incoming events. Any thread but the time slice.
class ORV_API MidiInputMessageManager final : public MessageManager
{
public:
    MidiInputMessageManager(MessageManagerMaster& master, MidiInputManager& midiInputManager);

    bool wantMessage(unsigned int message) const override;
    void handleMessage(Message& message) override;

    void postSetEventConfigurations(const std::vector<MidiEventConfiguration>& configurations, bool notifyGui);
    void postLoadPreset(const std::string& name);
    void postRenamePreset(const std::string& name, const std::string& newName);
    void postDeletePreset(const std::string& name);
    void postSavePreset(const std::string& name, const std::vector<MidiEvent>& eventsToSave);

private:
    MidiInputManager& manager;
};
}  // namespace Backend::MidiInput
