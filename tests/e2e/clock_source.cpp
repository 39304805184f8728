#include <jack/jack.h>
#include <jack/midiport.h>
#include <jack/transport.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

/// An external MIDI clock in a JACK graph, for the end-to-end tests and the measurements. It sends ticks, each at its
/// frame, and prints the messages sent and received, with the frames of its own count:
///
///     clock_source CLIENT DESTINATION SOURCE BPM JITTER_MS DRIFT BEATS
///
/// CLIENT:out is connected to DESTINATION and SOURCE to CLIENT:in ("-" for nothing). A start comes before the first
/// tick and a stop after the last. Every tick is off by up to JITTER_MS either way, the same ones each time, and the
/// tempo grows by DRIFT beats per minute in each beat. With 0 BEATS it sends nothing. It ends when everything was sent
/// and 200 periods have passed, or at SIGTERM. Lines: "sent FRAME HEX", "received FRAME HEX", and "gap FRAME" where the
/// server left periods out or did not wait for a client.
///
///     clock_source CLIENT - SOURCE roll FRAME BPM BEATS
///
/// instead locates the transport to that frame and lets it roll as long as BEATS last at BPM; it is the timebase
/// master, unless BPM is negative.
namespace
{
constexpr int TICKS_PER_BEAT = 24;
constexpr int PERIODS_AFTERWARDS = 200;
constexpr std::size_t ROOM = 1 << 18;

struct Message {
    std::int64_t frame = 0;
    jack_midi_data_t bytes[3] = {};
    std::uint32_t size = 0;
};

/// Written by the process callback alone until it has ended.
struct Record {
    std::vector<Message> messages = std::vector<Message>(ROOM);
    std::atomic<std::size_t> count{0};

    void add(std::int64_t frame, const jack_midi_data_t* bytes, std::size_t size)
    {
        if (count == ROOM) return;
        Message& message = messages[count];
        message.frame = frame;
        message.size = static_cast<std::uint32_t>(std::min<std::size_t>(size, 3));
        std::copy_n(bytes, message.size, message.bytes);
        ++count;
    }

    void print(const char* verb) const
    {
        for (std::size_t index = 0; index < count; ++index) {
            const Message& message = messages[index];
            std::printf("%s %lld ", verb, static_cast<long long>(message.frame));
            for (std::uint32_t byte = 0; byte < message.size; ++byte) std::printf("%02x", message.bytes[byte]);
            std::printf("\n");
        }
    }
};

struct Source {
    jack_client_t* client = nullptr;
    jack_port_t* in = nullptr;
    jack_port_t* out = nullptr;
    std::vector<Message> events;  // frames from the start
    double bpm = 0;               // as timebase master
    std::atomic<bool> playing{false};
    std::atomic<int> periodsAfterwards{0};
    std::atomic<int> overruns{0};
    Record sent;
    Record received;
    Record gaps;
    std::size_t next = 0;
    std::int64_t frame = 0;
    std::int64_t began = -1;
    jack_nframes_t serverFrame = 0;
};

std::atomic<bool> interrupted{false};

int process(jack_nframes_t frames, void* argument)
{
    auto& source = *static_cast<Source*>(argument);
    const jack_nframes_t serverFrame = jack_last_frame_time(source.client);
    const jack_midi_data_t nothing = 0;
    const bool wasLate = source.overruns.exchange(0) > 0;
    if (wasLate || (source.frame > 0 && serverFrame != source.serverFrame)) source.gaps.add(source.frame, &nothing, 1);
    source.serverFrame = serverFrame + frames;

    void* input = jack_port_get_buffer(source.in, frames);
    jack_midi_event_t event;
    for (std::uint32_t index = 0; jack_midi_event_get(&event, input, index) == 0; ++index)
        source.received.add(source.frame + event.time, event.buffer, event.size);

    void* output = jack_port_get_buffer(source.out, frames);
    jack_midi_clear_buffer(output);
    if (source.playing) {
        if (source.began < 0) source.began = source.frame;
        for (; source.next < source.events.size(); ++source.next) {
            const Message& message = source.events[source.next];
            const std::int64_t at = source.began + message.frame - source.frame;
            if (at >= frames) break;
            jack_midi_event_write(output, static_cast<jack_nframes_t>(std::max<std::int64_t>(at, 0)), message.bytes,
                                  message.size);
            source.sent.add(source.frame + at, message.bytes, message.size);
        }
        if (source.next == source.events.size()) ++source.periodsAfterwards;
    }
    source.frame += frames;
    return 0;
}

int overrun(void* argument)
{
    ++static_cast<Source*>(argument)->overruns;
    return 0;
}

void giveTime(jack_transport_state_t, jack_nframes_t, jack_position_t* position, int, void* argument)
{
    const double bpm = static_cast<Source*>(argument)->bpm;
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

std::vector<Message> clockOf(double bpm, double jitterFrames, double drift, int beats, double rate)
{
    std::mt19937 random(1);
    std::vector<Message> events;
    double at = 2 * std::abs(jitterFrames);
    const auto add = [&](std::int64_t frame, jack_midi_data_t status) { events.push_back({frame, {status}, 1}); };
    add(0, 0xFA);
    for (int tick = 0; tick < beats * TICKS_PER_BEAT; ++tick) {
        const double off = (static_cast<double>(random()) / 2147483647.5 - 1) * jitterFrames;
        add(std::max<std::int64_t>(std::llround(at + off), events.back().frame), 0xF8);
        at += rate * 60 / (bpm + drift * tick / TICKS_PER_BEAT) / TICKS_PER_BEAT;
    }
    if (beats > 0) add(events.back().frame, 0xFC);
    if (beats == 0) events.clear();
    return events;
}

/// Somebody else may have done it before.
bool isJoined(const Source& source, const char* from, const char* to)
{
    if (std::string_view(from) == "-" || std::string_view(to) == "-") return true;
    const int result = jack_connect(source.client, from, to);
    return result == 0 || result == EEXIST;
}

template <class Condition>
bool waitFor(Condition condition)
{
    for (int tries = 0; tries < 60000 && !interrupted; ++tries) {
        if (condition()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

double number(std::string_view text)
{
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

void roll(Source& source, jack_nframes_t frame, double bpm, double beats)
{
    source.bpm = bpm;
    if (bpm > 0) jack_set_timebase_callback(source.client, 0, giveTime, &source);
    jack_transport_locate(source.client, frame);
    jack_position_t position{};
    waitFor([&] { return jack_transport_query(source.client, &position), position.frame == frame; });
    jack_transport_start(source.client);
    const auto length = static_cast<jack_nframes_t>(jack_get_sample_rate(source.client) * beats * 60 / std::abs(bpm));
    waitFor([&] { return jack_transport_query(source.client, &position), position.frame >= frame + length; });
    jack_transport_stop(source.client);
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc < 8) return 2;
    std::signal(SIGTERM, [](int) { interrupted = true; });
    Source source;
    source.client = jack_client_open(argv[1], JackNoStartServer, nullptr);
    if (source.client == nullptr) return 1;
    const double rate = jack_get_sample_rate(source.client);
    const bool rolls = std::string_view(argv[4]) == "roll";
    if (!rolls)
        source.events = clockOf(number(argv[4]), number(argv[5]) * rate / 1000, number(argv[6]),
                                static_cast<int>(number(argv[7])), rate);
    source.in = jack_port_register(source.client, "in", JACK_DEFAULT_MIDI_TYPE, JackPortIsInput, 0);
    source.out = jack_port_register(source.client, "out", JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0);
    jack_set_process_callback(source.client, process, &source);
    jack_set_xrun_callback(source.client, overrun, &source);
    if (jack_activate(source.client) != 0) return 1;
    if (!isJoined(source, jack_port_name(source.out), argv[2]) ||
        !isJoined(source, argv[3], jack_port_name(source.in))) {
        std::fprintf(stderr, "clock_source: %s or %s is not there\n", argv[2], argv[3]);
        jack_client_close(source.client);
        return 1;
    }
    if (rolls) roll(source, static_cast<jack_nframes_t>(number(argv[5])), number(argv[6]), number(argv[7]));
    source.playing = true;
    const bool endless = !rolls && source.events.empty();
    waitFor([&] { return !endless && source.periodsAfterwards >= (rolls ? 3 : PERIODS_AFTERWARDS); });
    jack_client_close(source.client);
    source.sent.print("sent");
    source.received.print("received");
    source.gaps.print("gap");
    return 0;
}
