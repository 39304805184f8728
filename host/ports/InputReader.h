#pragma once

#include <atomic>

#include "host/ports/InputReceiver.h"
#include "host/ports/Ports.h"
#include "platform/Event.h"
#include "platform/Thread.h"

namespace Host
{
/// Takes the messages from the rings of the inputs and posts them on a thread of its own. The process callback only
/// fills the rings: posting to the backend allocates, and an allocation may wait for any thread of the process.
class InputReader
{
public:
    /// `allPorts` must outlive the reader.
    explicit InputReader(const Ports& allPorts) : ports(allPorts) {}
    ~InputReader() { stop(); }

    /// `receiver` must outlive the thread.
    void start(InputReceiver& receiver);

    /// Nothing is posted once this has returned.
    void stop();

    /// A message was pushed into a ring. Any thread; never waits.
    void wake() { arrived.set(); }

private:
    void run(InputReceiver& receiver);
    static void post(InputPort& port, int input, InputReceiver& receiver);

    const Ports& ports;
    Event arrived;
    std::atomic<bool> stopping{false};
    Thread thread;
};
}  // namespace Host
