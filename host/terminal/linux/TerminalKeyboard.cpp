#include "host/terminal/TerminalKeyboard.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <optional>

#include "host/terminal/HeldKey.h"
#include "host/terminal/TerminalKeyParser.h"
#include "platform/Thread.h"

namespace Host
{
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace
{
// An escape sequence arrives in one piece; an escape character alone is the Escape key.
constexpr auto LONGEST_PAUSE_IN_A_SEQUENCE = 50ms;
constexpr auto IN_THE_BACKGROUND = 100ms;
}  // namespace

class TerminalKeyboard::Reader
{
public:
    Reader(int from, Execute execute)
        : input(from),
          stopEvent(eventfd(0, EFD_CLOEXEC)),
          held([run = std::move(execute)](const KeyCommand& command) { run(command); })
    {
        thread.start("orvane keys", [this] { run(); });
    }

    ~Reader()
    {
        eventfd_write(stopEvent, 1);
        thread.join();
        ::close(stopEvent);
    }

private:
    using Time = HeldKey::Time;

    void run();
    std::optional<short> waitForInput() const;
    std::optional<Time> nextTime() const;
    bool read(short events);
    void send(const std::vector<Key>& keys);

    const int input;
    const int stopEvent;

    // The thread's
    HeldKey held;
    TerminalKeyParser parser;
    Time lastByte;

    Thread thread;
};

TerminalKeyboard::TerminalKeyboard(int fileDescriptor, Execute execute)
    : reader(std::make_unique<Reader>(fileDescriptor, std::move(execute)))
{
}

TerminalKeyboard::~TerminalKeyboard() = default;

void TerminalKeyboard::Reader::run()
{
    while (const auto events = waitForInput()) {
        if ((*events & POLLIN) != 0) {
            if (!read(*events)) break;
        } else if (*events != 0) {
            break;  // the terminal was closed
        }
        const Time now = Clock::now();
        if (parser.isWaiting() && now >= lastByte + LONGEST_PAUSE_IN_A_SEQUENCE) send(parser.finish());
        held.advanceTo(now);
    }
    held.release();
}

/// The events of the input; none once the destructor runs.
std::optional<short> TerminalKeyboard::Reader::waitForInput() const
{
    std::array<pollfd, 2> waited{{{stopEvent, POLLIN, 0}, {input, POLLIN, 0}}};
    int timeout = -1;
    if (const auto time = nextTime()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*time - Clock::now());
        timeout = static_cast<int>(std::max(left, 0ms).count());
    }
    if (::poll(waited.data(), waited.size(), timeout) < 0)
        return errno == EINTR ? std::optional<short>(0) : std::nullopt;
    if (waited[0].revents != 0) return std::nullopt;
    return waited[1].revents;
}

/// When there is something to do although no key arrives.
std::optional<TerminalKeyboard::Reader::Time> TerminalKeyboard::Reader::nextTime() const
{
    const auto end = held.getEnd();
    if (!parser.isWaiting()) return end;
    const Time pause = lastByte + LONGEST_PAUSE_IN_A_SEQUENCE;
    return end ? std::min(*end, pause) : pause;
}

/// False at the end of the input.
bool TerminalKeyboard::Reader::read(short events)
{
    std::array<char, 256> bytes;
    const ssize_t size = ::read(input, bytes.data(), bytes.size());
    if (size < 0 && errno == EIO &&
        (events & POLLHUP) == 0) {  // in the background, where the terminal sends its keys to another program
        pollfd stop{stopEvent, POLLIN, 0};
        ::poll(&stop, 1, static_cast<int>(IN_THE_BACKGROUND.count()));
        return true;
    }
    if (size <= 0) return size < 0 && errno == EINTR;
    lastByte = Clock::now();
    send(parser.parse({bytes.data(), static_cast<std::size_t>(size)}));
    return true;
}

void TerminalKeyboard::Reader::send(const std::vector<Key>& keys)
{
    for (const Key& key : keys) held.receive(key, Clock::now());
}
}  // namespace Host
