#pragma once

#include <string>
#include <vector>

#include "backend/messages/MessageManager.h"
#include "backend/model/OscList.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectType.h"
#include "platform/Export.h"

namespace Backend::Oscillators
{
class OscManager;

/// What the window asks of the oscillators, see `OscManager`. Any thread but the time slice.
class ORV_API OscMessageManager final : public MessageManager
{
public:
    OscMessageManager(MessageManagerMaster& master, OscManager& oscManager);

    bool wantMessage(unsigned int message) const override;
    void handleMessage(Message& message) override;

    void postMergeOscillators(const std::vector<Oscillator>& changed, bool redraw);
    void postSetOscillators(const OscList& oscillators, bool redraw);
    void postLoadPreset(const std::string& name);
    void postRenamePreset(const std::string& name, const std::string& newName);
    void postDeletePreset(const std::string& name);
    void postSavePreset(const std::string& name, const std::vector<OscId>& ids);
    void postSetSelected(const std::vector<OscId>& ids);
    void postChangePlaying(const SelectType& select, const OnOffToggle& value);
    void postChangeSpeed(OscId id, const RelativeFixedValue& value);
    void postSetSpeedFromMidi(const SelectType& select, std::int32_t value);
    void postSetSpeedMode(OscId id, TimeIntervalType mode);

private:
    OscManager& manager;
};
}  // namespace Backend::Oscillators
