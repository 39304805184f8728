#pragma once

#include "backend/engine/EventRecorder.h"
#include "backend/recorder/RetroRecordManager.h"

namespace Backend
{
/// Passes what the engine plays to the retrospective record.
class EngineRecorder final : public MidiEngine::EventRecorder
{
public:
    explicit EngineRecorder(RetroRecord::RetroRecordManager& manager) : record(manager) {}

    void addEvent(const MidiEngine::MidiMessage& message, int output, std::uint32_t milliseconds) override
    {
        record.addEvent(message, output, milliseconds);
    }
    void wake() override { record.wake(); }

private:
    RetroRecord::RetroRecordManager& record;
};
}  // namespace Backend
