// Any bytes are read as a MIDI file or refused, never more. What is read is in order and in range, and comes back the
// same from a file that we write of it.
#include <algorithm>

#include "fuzz/Fuzzing.h"
#include "host/common/InputError.h"
#include "host/common/LastPulse.h"
#include "host/midifile/MidiFileReader.h"
#include "host/midifile/MidiFileWriter.h"

namespace
{
void checkEvents(const std::vector<Host::MidiFileEvent>& events)
{
    require(std::ranges::is_sorted(events, {}, &Host::MidiFileEvent::time));
    for (const Host::MidiFileEvent& event : events) {
        require(event.time >= 0 && event.time <= Host::LAST_PULSE);
        require(event.status >= 0x80 && event.status < 0xF0 && event.d1 < 0x80 && event.d2 < 0x80);
    }
}
}  // namespace

void tryInput(std::string_view text)
try {
    const std::vector<Host::MidiFileEvent> events = Host::readMidiFile({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, "fuzz.mid");
    checkEvents(events);
    Host::MidiFileWriter writer({"Out 1"});
    for (const Host::MidiFileEvent& event : events) writer.event(event.time, 0, event.status, event.d1, event.d2);
    require(Host::readMidiFile(writer.bytes(Host::LAST_PULSE), "written.mid") == events);
} catch (const Host::InputError&) {
}
