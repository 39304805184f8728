#include "api/MidiPlayer.h"

#include "platform/Clock.h"

namespace Backend::MidiEngine
{
std::uint32_t MidiPlayer::getMilliseconds() { return monotonicMilliseconds(); }
}  // namespace Backend::MidiEngine
