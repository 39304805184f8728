#include <jack/jack.h>
#include <jack/midiport.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>
#include <thread>
#include <vector>

/// A second player for the end-to-end tests: it plays given MIDI bytes at given times into a port of a JACK graph.
///
///     midi_source CLIENT DESTINATION MS:HEX...
///
/// Its port is CLIENT:out; with "-" as DESTINATION it is not connected and waits for a connection. Exit
/// status 0 once everything has been played, 1 if the graph or the destination is not there.
namespace
{
struct Event {
    std::int64_t milliseconds = 0;
    std::vector<jack_midi_data_t> bytes;
};

struct Source {
    jack_client_t* client = nullptr;
    jack_port_t* port = nullptr;
    std::vector<Event> events;
    std::atomic<bool> called{false};
    std::atomic<bool> playing{false};
    std::atomic<std::size_t> next{0};
    std::atomic<int> periodsAfterwards{0};
    std::int64_t frames = 0;
};

bool parse(std::string_view text, Event& event)
{
    const auto colon = text.find(':');
    if (colon == std::string_view::npos) return false;
    std::from_chars(text.data(), text.data() + colon, event.milliseconds);
    for (std::size_t at = colon + 1; at + 1 < text.size(); at += 2) {
        jack_midi_data_t byte = 0;
        if (std::from_chars(text.data() + at, text.data() + at + 2, byte, 16).ec != std::errc()) return false;
        event.bytes.push_back(byte);
    }
    return !event.bytes.empty();
}

int process(jack_nframes_t frames, void* argument)
{
    auto& source = *static_cast<Source*>(argument);
    void* buffer = jack_port_get_buffer(source.port, frames);
    jack_midi_clear_buffer(buffer);
    source.called = true;
    if (!source.playing) return 0;
    const std::int64_t now = source.frames * 1000 / jack_get_sample_rate(source.client);
    for (; source.next < source.events.size() && source.events[source.next].milliseconds <= now; ++source.next) {
        const auto& bytes = source.events[source.next].bytes;
        jack_midi_event_write(buffer, 0, bytes.data(), bytes.size());
    }
    if (source.next == source.events.size()) ++source.periodsAfterwards;
    source.frames += frames;
    return 0;
}

bool isConnected(const Source& source, const char* destination)
{
    if (std::string_view(destination) == "-") return jack_port_connected(source.port) > 0;
    const int error = jack_connect(source.client, jack_port_name(source.port), destination);
    return error == 0 || error == EEXIST;  // the other end may have restored the connection
}

template <class Condition>
bool waitFor(Condition condition, int tries = 2000)
{
    for (; tries > 0; --tries) {
        if (condition()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

using Client = std::unique_ptr<jack_client_t, int (*)(jack_client_t*)>;

/// The server of a busy machine sometimes accepts a client and never runs it: then another one is tried.
Client enter(Source& source, const char* name)
{
    for (int tries = 0; tries < 4; ++tries) {
        Client client(source.client = jack_client_open(name, JackNoStartServer, nullptr), jack_client_close);
        if (!client) break;
        source.port = jack_port_register(client.get(), "out", JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0);
        jack_set_process_callback(client.get(), process, &source);
        if (jack_activate(client.get()) == 0 && waitFor([&] { return source.called.load(); }, 200)) return client;
    }
    return {nullptr, jack_client_close};
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc < 4) return 2;
    Source source;
    for (int index = 3; index < argc; ++index)
        if (!parse(argv[index], source.events.emplace_back())) return 2;

    const Client client = enter(source, argv[1]);
    if (!client) return 1;
    if (!waitFor([&] { return isConnected(source, argv[2]); })) {
        std::fprintf(stderr, "midi_source: %s is not there\n", argv[2]);
        return 1;
    }
    source.playing = true;
    return waitFor([&] { return source.periodsAfterwards >= 3; }) ? 0 : 1;
}
