// The time from an event of a device to its arrival at another one, without a graph: `build/release/bin/bench_alsa
// [EVENTS]`. The devices are fakes, whose functions the thread of this program calls as a device's thread would; all
// else is the stand-alone host, with slices of a millisecond. Then the same for an event that is deferred.

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <thread>

#include "api/OrvMessageManager.h"
#include "host/devices/DeviceSystem.h"
#include "host/run/LivePlay.h"
#include "tests/host/FakeDevices.h"
#include "tests/host/HostTesting.h"
#include "tests/stage/PrivateFolders.h"

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

namespace
{
class Bench
{
public:
    Bench() : devices(*new Host::Testing::FakeDevices)
    {
        devices.devices = {{"24:0", "Piano"}, {"28:0", "Organ"}};
        system = std::make_unique<Host::DeviceSystem>(std::unique_ptr<Host::MidiDevices>(&devices), ports, nullptr);
        play = std::make_unique<Host::LivePlay>(
            *system, ports, memory, requests, [](const std::string&) {}, Host::Setup{}, Host::ClockPorts{});
        play->getOrv().getOrvMessageManager().postChangeDefaultMidiOutput({SelectType::Kind::specific, ORGAN});
        std::this_thread::sleep_for(200ms);
    }

    /// In microseconds, sorted.
    std::vector<double> measure(int events, const std::function<void()>& before)
    {
        std::vector<double> times;
        for (int event = 0; event < events; ++event) {
            before();
            const std::size_t sent = devices.sent;
            const auto start = SteadyClock::now();
            devices.openSources["Piano"](event % 2 == 0 ? Host::Testing::on(60) : Host::Testing::off(60));
            while (devices.sent == sent) std::this_thread::yield();
            times.push_back(std::chrono::duration<double, std::micro>(SteadyClock::now() - start).count());
            std::this_thread::sleep_for(std::chrono::microseconds(5000 + event * 137 % 1000));
        }
        std::ranges::sort(times);
        return times;
    }

    /// The next event of the piano has to take the way through the backend.
    void defer()
    {
        play->getOrv().deferMidiInputEvent(PIANO);
        play->getOrv().getOrvMessageManager().postMidiInputEventLost(PIANO);
    }

private:
    static constexpr int PIANO = 1;  // behind "Orvane In"
    static constexpr int ORGAN = 2;  // behind "Orvane Out" and the piano

    PrivateFolders folders;
    Event requests;
    Host::Ports ports;
    Host::PortMemory memory{(folders / "data").string(), [](const std::string&) {}};
    Host::Testing::FakeDevices& devices;
    std::unique_ptr<Host::DeviceSystem> system;
    std::unique_ptr<Host::LivePlay> play;
};

void print(const char* name, const std::vector<double>& times)
{
    const auto at = [&](double part) {
        return times[static_cast<std::size_t>(part * static_cast<double>(times.size() - 1))];
    };
    std::printf("%s, %zu events: median %.0f us, 99th percentile %.0f us, longest %.0f us\n", name, times.size(),
                at(0.5), at(0.99), at(1));
}
}  // namespace

int main(int argc, char** argv)
{
    int events = 1000;
    if (const std::string_view text = argc > 1 ? argv[1] : ""; !text.empty())
        std::from_chars(text.data(), text.data() + text.size(), events);
    Bench bench;
    print("played by the thread of the device", bench.measure(std::max(events, 1), [] {}));
    print("deferred", bench.measure(std::max(events, 1), [&] { bench.defer(); }));
}
