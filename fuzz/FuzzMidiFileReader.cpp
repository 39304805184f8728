// Any bytes are read as a MIDI file or refused, never more. What is read is in order and in range, and comes back the
// same from a file that we write of it.
#include <algorithm>
#include <cstdlib>

#include "host/common/InputError.h"
#include "host/common/LastPulse.h"
#include "host/midifile/MidiFileReader.h"
#include "host/midifile/MidiFileWriter.h"

namespace
{
void require(bool truth)
{
    if (!truth) std::abort();
}

void checkEvents(const std::vector<Host::MidiFileEvent>& events)
{
    require(std::ranges::is_sorted(events, {}, &Host::MidiFileEvent::time));
    for (const Host::MidiFileEvent& event : events) {
        require(event.time >= 0 && event.time <= Host::LAST_PULSE);
        require(event.status >= 0x80 && event.status < 0xF0 && event.d1 < 0x80 && event.d2 < 0x80);
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
try {
    const std::vector<Host::MidiFileEvent> events = Host::readMidiFile({data, size}, "fuzz.mid");
    checkEvents(events);
    Host::MidiFileWriter writer({"Out 1"});
    for (const Host::MidiFileEvent& event : events) writer.event(event.time, 0, event.status, event.d1, event.d2);
    require(Host::readMidiFile(writer.bytes(Host::LAST_PULSE), "written.mid") == events);
    return 0;
} catch (const Host::InputError&) {
    return 0;
}
