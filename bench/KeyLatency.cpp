#include "bench/KeyLatency.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <thread>
#include <vector>

#include "backend/values/Key.h"

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace
{
Clock::duration timeOf(LiveStage& stage, const std::function<void()>& action)
{
    const int before = stage.player.events;
    const auto start = Clock::now();
    action();
    while (stage.player.events == before) std::this_thread::sleep_for(100us);
    return stage.player.last - start;
}

double milliseconds(Clock::duration duration) { return std::chrono::duration<double, std::milli>(duration).count(); }

}  // namespace

void printKeys(const std::string& name, KeyTimes times)
{
    std::ranges::sort(times);
    const auto at = [&](double part) {
        return milliseconds(times[static_cast<std::size_t>(part * static_cast<double>(times.size() - 1))]);
    };
    std::printf("%s, %zu presses: median %.2f ms, 99th percentile %.2f ms, longest %.2f ms\n", name.c_str(),
                times.size(), at(0.5), at(0.99), at(1));
}

KeySender postedKeys(LiveStage& stage)
{
    const Key key = Key::fromXmlString("Q");
    return {.press = [&stage, key] { stage.commands().postKeyDown(key, false); },
            .release = [&stage, key] { stage.commands().postKeyUp(key); }};
}

void pressKeys(LiveStage& stage, int presses, const KeySender& way, KeyTimes& times)
{
    for (int press = 0; press < presses; ++press) {
        times.push_back(timeOf(stage, way.press));
        timeOf(stage, way.release);
        std::this_thread::sleep_for(std::chrono::microseconds(press * 137 % 1000));  // anywhere within a slice
    }
}

int countOfPresses(int argc, char** argv, int otherwise)
{
    int count = otherwise;
    if (const std::string_view text = argc > 1 ? argv[1] : ""; !text.empty())
        std::from_chars(text.data(), text.data() + text.size(), count);
    return std::max(count, 1);
}
