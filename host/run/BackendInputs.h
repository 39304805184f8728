#pragma once

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "host/ports/InputReceiver.h"

namespace Host
{
/// Passes the events of the inputs to the backend.
class BackendInputs final : public InputReceiver
{
public:
    /// `backend` must outlive this object.
    explicit BackendInputs(Backend::OrvIF& backend) : orv(backend) {}

    bool play(const Event& event) override { return orv.playMidiInputEvent(event); }
    void defer(int input) override { orv.deferMidiInputEvent(input); }
    void post(const Event& event) override { orv.getOrvMessageManager().postProcessMidiInputEvent(event); }
    void postLost(int input) override { orv.getOrvMessageManager().postMidiInputEventLost(input); }

private:
    Backend::OrvIF& orv;
};
}  // namespace Host
