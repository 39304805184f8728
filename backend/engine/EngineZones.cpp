#include "backend/engine/EngineZones.h"

namespace Backend::Zones
{
using MidiEngine::NoteMemory;
using MidiEngine::OrvMidiMessage;
using MidiEngine::PressMemory;

void EngineZones::set(std::span<const Zone> zones)
{
    for (Record& record : records) record.exists = false;
    for (const Zone& zone : zones) {
        if (zone.id < 0) continue;
        Record& record = records[static_cast<std::size_t>(zone.id)];
        record.exists = true;
        record.transpose = zone.transpose;
        record.last.fill(NoteMemory::NONE);
    }
}

void EngineZones::setTranspose(const Zone& zone)
{
    if (zone.id >= 0 && records[static_cast<std::size_t>(zone.id)].exists)
        records[static_cast<std::size_t>(zone.id)].transpose = zone.transpose;
}

int EngineZones::soundingNote(const OrvMidiMessage& event, PressMemory& presses, std::size_t press)
{
    const int played = event.getD1();
    Record& record = records[static_cast<std::size_t>(event.getZone())];
    if (event.isNoteOff()) {
        if (const int sounding = presses.takeNote(press); sounding != NoteMemory::NONE) return sounding;
        const int last = record.exists ? record.last[static_cast<std::size_t>(played)] : NoteMemory::NONE;
        return last != NoteMemory::NONE ? last : played;
    }
    // Remembered without a zone too: it may come while the key is down.
    const int sounding = record.exists ? MidiEngine::foldNote(played + record.transpose) : played;
    record.last[static_cast<std::size_t>(played)] = static_cast<std::int16_t>(sounding);
    presses.rememberNote(press, sounding);
    return sounding;
}
}  // namespace Backend::Zones
