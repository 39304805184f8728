#include "backend/engine/EngineZones.h"

namespace Backend::Zones
{
using MidiEngine::OrvMidiMessage;

void EngineZones::set(std::span<const Zone> zones)
{
    for (Record& record : records) record.exists = false;
    for (const Zone& zone : zones) {
        if (zone.id < 0) continue;
        Record& record = records[static_cast<std::size_t>(zone.id)];
        record.exists = true;
        record.transpose = zone.transpose;
        record.last.fill(NEVER);
    }
}

void EngineZones::setTranspose(const Zone& zone)
{
    if (zone.id >= 0 && records[static_cast<std::size_t>(zone.id)].exists)
        records[static_cast<std::size_t>(zone.id)].transpose = zone.transpose;
}

int EngineZones::press(const OrvMidiMessage& noteOn)
{
    Record& record = records[static_cast<std::size_t>(noteOn.getZone())];
    const int played = noteOn.getD1();
    const int sounding = record.exists ? MidiEngine::foldNote(played + record.transpose) : played;
    record.last[static_cast<std::size_t>(played)] = static_cast<std::int16_t>(sounding);
    return sounding;
}

int EngineZones::getLastSounding(const OrvMidiMessage& noteOff) const
{
    const Record& record = records[static_cast<std::size_t>(noteOff.getZone())];
    const int last = record.exists ? record.last[noteOff.getD1()] : NEVER;
    return last != NEVER ? last : noteOff.getD1();
}
}  // namespace Backend::Zones
