#include "host/jack/JackInputs.h"

#include <utility>

#include <jack/midiport.h>

#include "platform/Clock.h"

namespace Host
{
void JackInputs::begin(InputReceiver& to, Clock* clock, std::uint32_t start, jack_nframes_t frames)
{
    receiver = &to;
    milliseconds = monotonicMilliseconds();
    isQueued = false;
    count = 0;
    for (std::size_t input = 0, size = ports.inputs().size(); input < size; ++input) {
        jack_port_t* const port = own[input];
        if (port == nullptr || !ports.inputs()[input]->open.load(std::memory_order_relaxed)) continue;
        Cursor cursor;
        cursor.input = input;
        cursor.buffer = jack_port_get_buffer(port, frames);
        if (clock != nullptr) receiveClock(cursor, *clock, start);
        if (findMessage(cursor)) cursors[count++] = cursor;
    }
}

void JackInputs::receiveClock(const Cursor& cursor, Clock& clock, std::uint32_t start)
{
    jack_midi_event_t event;
    for (std::uint32_t index = 0; jack_midi_event_get(&event, cursor.buffer, index) == 0; ++index)
        if (const auto message = readShortMessage({event.buffer, event.size}))
            clock.receiveInGraph(static_cast<int>(cursor.input), *message, start + event.time);
}

/// The next message that does not stay in the host; false if there is none.
bool JackInputs::findMessage(Cursor& cursor)
{
    jack_midi_event_t event;
    while (jack_midi_event_get(&event, cursor.buffer, cursor.index++) == 0) {
        const auto message = readShortMessage({event.buffer, event.size});
        if (!message || staysInHost(*message)) continue;
        cursor.frame = event.time;
        cursor.message = *message;
        return true;
    }
    return false;
}

/// The input with the earliest message, the lowest of several; null if none is left.
JackInputs::Cursor* JackInputs::findNext()
{
    Cursor* next = nullptr;
    for (std::size_t index = 0; index < count; ++index)
        if (next == nullptr || cursors[index].frame < next->frame) next = &cursors[index];
    return next;
}

std::optional<std::uint32_t> JackInputs::nextFrame()
{
    const Cursor* const next = findNext();
    return next != nullptr ? std::optional(next->frame) : std::nullopt;
}

void JackInputs::playNext()
{
    Cursor& cursor = *findNext();
    if (ports.inputs()[cursor.input]->limit.passes(cursor.message, milliseconds) &&
        !receiver->play(toInputEvent(cursor.message, static_cast<int>(cursor.input))))
        queue(cursor);
    pass(cursor);
}

bool JackInputs::end()
{
    while (Cursor* const cursor = findNext()) {
        if (ports.inputs()[cursor->input]->limit.passes(cursor->message, milliseconds)) {
            receiver->defer(static_cast<int>(cursor->input));
            queue(*cursor);
        }
        pass(*cursor);
    }
    return isQueued;
}

/// Goes on to the input's next message. Inputs without one are removed; the order of the others stays.
void JackInputs::pass(Cursor& cursor)
{
    if (findMessage(cursor)) return;
    for (Cursor* next = &cursor; next + 1 < cursors.data() + count; ++next) *next = *(next + 1);
    --count;
}

void JackInputs::queue(const Cursor& cursor)
{
    ports.inputs()[cursor.input]->queue(cursor.message);
    isQueued = true;
}
}  // namespace Host
