#pragma once

#include "backend/display/DisplayMessageManager.h"
#include "backend/engine/EventLog.h"

namespace Backend
{
/// Passes what the engine plays and receives to the display.
class EngineLog final : public MidiEngine::EventLog
{
public:
    explicit EngineLog(Display::DisplayMessageManager& manager) : display(manager) {}

    void addFromSlice(const MidiEngine::OrvMidiMessage& event) override { display.postMidiOutputEventFromSlice(event); }
    void addInputFromSlice(const MidiEngine::OrvMidiMessage& event) override
    {
        display.postMidiInputEventFromSlice(event);
    }
    void wake() override { display.wake(); }

private:
    Display::DisplayMessageManager& display;
};
}  // namespace Backend
