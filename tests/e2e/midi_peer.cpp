#include <jack/jack.h>
#include <jack/midiport.h>
#include <jack/transport.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>
#include <thread>
#include <vector>

/// Another program in a JACK graph, for the end-to-end tests and the measurements:
///
///     midi_peer NAME DESTINATION SOURCE [FRAME:HEX... [stay]]
///
/// connects NAME:output to DESTINATION and SOURCE to NAME:input ("-" where somebody else makes the connection, "none"
/// for no such port), says "ready", and sends each message at its frame, counted from the first period in which its
/// output is connected. It prints what it sent and received, with frames of its own count: "sent FRAME HEX",
/// "received FRAME HEX", and "gap FRAME" where the server left periods out or did not wait for a client. It ends when
/// everything was sent; with a SOURCE, or with "stay", at SIGTERM.
///
///     midi_peer NAME none SOURCE roll FRAME BPM BEATS
///
/// instead locates the transport to that frame and lets it roll as long as BEATS last at BPM, as the timebase master.
///
/// The exit status is 1 if the graph or a port is not there.
namespace
{
struct Message {
    const char* verb = "sent";
    long long frame = 0;
    std::size_t size = 0;
    jack_midi_data_t bytes[8] = {};
};

struct Peer {
    jack_client_t* client = nullptr;
    jack_port_t* input = nullptr;
    jack_port_t* output = nullptr;
    std::vector<Message> events;
    double bpm = 0;
    std::atomic<bool> playing{false};
    std::atomic<int> periodsAfterwards{0};
    std::atomic<int> overruns{0};
    std::atomic<std::int64_t> frame{0};
    std::vector<Message> record = std::vector<Message>(1 << 16);  // a ring from the process callback to the printing
    std::atomic<std::size_t> count{0};
    std::atomic<std::size_t> printed{0};
    std::size_t next = 0;
    std::int64_t began = -1;
    jack_nframes_t nextPeriod = 0;

    void add(const char* verb, long long at, std::span<const jack_midi_data_t> bytes = {})
    {
        if (count - printed == record.size()) return;
        Message& message = record[count % record.size()];
        message = {verb, at, std::min(bytes.size(), std::size(message.bytes))};
        std::copy_n(bytes.begin(), message.size, message.bytes);
        ++count;
    }
};

std::atomic<bool> ending{false};

int process(jack_nframes_t frames, void* argument)
{
    auto& peer = *static_cast<Peer*>(argument);
    const std::int64_t now = peer.frame;
    const jack_nframes_t period = jack_last_frame_time(peer.client);
    const bool wasLate = peer.overruns.exchange(0) > 0;
    if (wasLate || (now > 0 && period != peer.nextPeriod)) peer.add("gap", now);
    peer.nextPeriod = period + frames;

    if (peer.input != nullptr) {
        void* buffer = jack_port_get_buffer(peer.input, frames);
        jack_midi_event_t event;
        for (std::uint32_t index = 0; jack_midi_event_get(&event, buffer, index) == 0; ++index)
            peer.add("received", now + event.time, {event.buffer, event.size});
    }
    if (peer.output != nullptr) {
        void* buffer = jack_port_get_buffer(peer.output, frames);
        jack_midi_clear_buffer(buffer);
        if (peer.playing && peer.began < 0) peer.began = now;
        for (; peer.playing && peer.next < peer.events.size(); ++peer.next) {
            const Message& message = peer.events[peer.next];
            const std::int64_t at = std::max<std::int64_t>(peer.began + message.frame - now, 0);
            if (at >= frames) break;
            jack_midi_event_write(buffer, static_cast<jack_nframes_t>(at), message.bytes, message.size);
            peer.add("sent", now + at, {message.bytes, message.size});
        }
    }
    if (peer.playing && peer.next == peer.events.size()) ++peer.periodsAfterwards;
    peer.frame = now + frames;
    return 0;
}

int noteOverrun(void* argument)
{
    ++static_cast<Peer*>(argument)->overruns;
    return 0;
}

void giveTime(jack_transport_state_t, jack_nframes_t, jack_position_t* position, int, void* argument)
{
    const double bpm = static_cast<Peer*>(argument)->bpm;
    const double beats = position->frame / static_cast<double>(position->frame_rate) * bpm / 60;
    position->valid = JackPositionBBT;
    position->beats_per_bar = 4;
    position->beat_type = 4;
    position->ticks_per_beat = 1'000'000;
    position->beats_per_minute = bpm;
    position->bar = static_cast<std::int32_t>(beats / 4) + 1;
    position->beat = static_cast<std::int32_t>(std::fmod(beats, 4)) + 1;
    position->tick = static_cast<std::int32_t>(std::fmod(beats, 1) * position->ticks_per_beat);
    position->bar_start_tick = (position->bar - 1.0) * 4 * position->ticks_per_beat;
}

bool parse(const char* text, Message& message)
{
    int size = 0;
    if (std::sscanf(text, "%lld:%n", &message.frame, &size) != 1) return false;
    for (text += size; message.size < std::size(message.bytes) && *text != 0; text += size)
        if (std::sscanf(text, "%2hhx%n", &message.bytes[message.size++], &size) != 1) return false;
    return message.size > 0 && *text == 0;
}

/// Prints what is new in the record until the condition holds or the program is to end.
template <class Condition>
bool waitFor(Peer& peer, Condition condition)
{
    bool holds = false;
    do {
        holds = condition();
        for (; peer.printed < peer.count; ++peer.printed) {
            const Message& message = peer.record[peer.printed % peer.record.size()];
            std::printf("%s %lld", message.verb, message.frame);
            for (std::size_t byte = 0; byte < message.size; ++byte) std::printf(" %02x", message.bytes[byte]);
            std::puts("");
        }
        std::fflush(stdout);
        if (!holds) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    } while (!holds && !ending);
    return holds;
}

/// Somebody else may have made the connection before.
bool connect(Peer& peer, const char* from, const char* to)
{
    const bool connected = waitFor(peer, [&, tries = 0]() mutable {
        const int result = jack_connect(peer.client, from, to);
        if (result != 0 && result != EEXIST && ++tries == 2000) ending = true;
        return result == 0 || result == EEXIST;
    });
    if (!connected) std::fprintf(stderr, "midi_peer: %s was not connected to %s.\n", from, to);
    return connected;
}

void roll(Peer& peer, jack_nframes_t frame, double beats)
{
    jack_position_t position{};
    const auto isAt = [&](jack_nframes_t wanted) {
        jack_transport_query(peer.client, &position);
        return frame == wanted ? position.frame == frame : position.frame >= wanted;
    };
    jack_set_timebase_callback(peer.client, 0, giveTime, &peer);
    jack_transport_locate(peer.client, frame);
    waitFor(peer, [&] { return isAt(frame); });
    jack_transport_start(peer.client);
    const double length = jack_get_sample_rate(peer.client) * beats * 60 / peer.bpm;
    waitFor(peer, [&] { return isAt(frame + static_cast<jack_nframes_t>(length)); });
    jack_transport_stop(peer.client);
}

using Client = std::unique_ptr<jack_client_t, int (*)(jack_client_t*)>;

/// The server of a busy machine sometimes accepts a client and never runs it: then another one is tried.
Client enter(Peer& peer, const char* name, bool hasInput, bool hasOutput)
{
    const auto port = [&](const char* portName, JackPortFlags flags) {
        return jack_port_register(peer.client, portName, JACK_DEFAULT_MIDI_TYPE, flags, 0);
    };
    for (int tries = 0; tries < 10; ++tries) {
        Client client(peer.client = jack_client_open(name, JackNoStartServer, nullptr), jack_client_close);
        if (!client) break;
        if (hasInput) peer.input = port("input", JackPortIsInput);
        if (hasOutput) peer.output = port("output", JackPortIsOutput);
        jack_set_process_callback(peer.client, process, &peer);
        jack_set_xrun_callback(peer.client, noteOverrun, &peer);
        jack_on_shutdown(
            peer.client, [](void*) { ending = true; }, nullptr);
        if (jack_activate(peer.client) != 0) continue;
        if (waitFor(peer, [&, looks = 0]() mutable { return peer.frame > 0 || ++looks == 4000; }) && peer.frame > 0)
            return client;
    }
    return {nullptr, jack_client_close};
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc < 4) return 2;
    std::signal(SIGTERM, [](int) { ending = true; });
    const std::string_view destination = argv[2];
    const std::string_view source = argv[3];
    const bool rolls = argc == 8 && argv[4] == std::string_view("roll");
    const bool isTold = argv[argc - 1] == std::string_view("stay");
    const bool stays = isTold || source != "none";
    Peer peer;
    for (int index = 4; index < argc - (isTold ? 1 : 0) && !rolls; ++index)
        if (!parse(argv[index], peer.events.emplace_back())) return 2;

    const Client client = enter(peer, argv[1], source != "none", destination != "none");
    if (!client) {
        std::fprintf(stderr, "midi_peer: the server runs no client \"%s\".\n", argv[1]);
        return 1;
    }
    std::puts("ready");
    if (destination != "none" && destination != "-" && !connect(peer, jack_port_name(peer.output), argv[2])) return 1;
    if (source != "none" && source != "-" && !connect(peer, argv[3], jack_port_name(peer.input))) return 1;
    if (destination == "-") waitFor(peer, [&] { return jack_port_connected(peer.output) > 0; });
    if (rolls) {
        peer.bpm = std::atof(argv[6]);
        roll(peer, static_cast<jack_nframes_t>(std::atol(argv[5])), std::atof(argv[7]));
    }
    const std::int64_t settled =
        peer.frame + 4 * jack_get_buffer_size(peer.client);  // the connections need some periods
    waitFor(peer, [&] { return peer.frame >= settled; });
    peer.playing = true;
    const bool ended = waitFor(peer, [&] { return !stays && peer.periodsAfterwards >= 3; });
    return ended || stays ? 0 : 1;
}
