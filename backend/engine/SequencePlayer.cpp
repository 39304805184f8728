#include "backend/engine/SequencePlayer.h"

#include <algorithm>

#include "backend/engine/MidiEngine.h"

namespace Backend::SequenceManagement
{
void SequencePlayer::play(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                          const MidiEngine::OrvMidiMessage& event, std::size_t node) const
{
    if (node >= setting.nodes.size() || !event.isNote()) return;
    for (const SequenceOffset& offset : setting.nodes[node]) {
        if (offset.rest) continue;
        MidiEngine::OrvMidiMessage played = event;
        if (setting.useNote) played.setD1(MidiEngine::foldNote(std::int64_t{event.getD1()} + offset.note));
        if (setting.useVelocity) {
            const std::int64_t velocity = static_cast<std::int8_t>(event.getD2());
            played.setD2(static_cast<int>(std::clamp<std::int64_t>(velocity + offset.velocity, 0, 127)));
        }
        engine.playMidiInternal(slice, played, false);
    }
}
}  // namespace Backend::SequenceManagement
