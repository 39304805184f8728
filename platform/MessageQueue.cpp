#include "platform/MessageQueue.h"

#include <bit>
#include <utility>

MessageQueue::Pool::Pool(std::size_t wanted) : ring(wanted == 0 ? 0 : std::bit_ceil(wanted))
{
    for (auto& node : ring) node = new Node;
    given = ring.size();
}

MessageQueue::Pool::~Pool()
{
    while (Node* node = take()) delete node;
}

bool MessageQueue::Pool::give(Node* node)
{
    const auto at = given.load(std::memory_order_relaxed);
    if (at - taken.load(std::memory_order_acquire) >= ring.size()) return false;
    ring[at & (ring.size() - 1)] = node;
    given.store(at + 1, std::memory_order_release);
    return true;
}

MessageQueue::Node* MessageQueue::Pool::take()
{
    const auto at = taken.load(std::memory_order_relaxed);
    if (at == given.load(std::memory_order_acquire)) return nullptr;
    Node* node = ring[at & (ring.size() - 1)];
    taken.store(at + 1, std::memory_order_release);
    return node;
}

MessageQueue::MessageQueue(std::size_t slicePool) : MessageQueue(slicePool, {}) {}

MessageQueue::MessageQueue(std::size_t slicePool, std::function<void()> waker)
    : newest(new Node),
      callWaker(std::move(waker)),
      handled(newest.load()),
      pool(slicePool),
      current(newest.load()),
      oldest(current)
{
}

MessageQueue::~MessageQueue()
{
    close();
    delete current;
}

void MessageQueue::append(Node* node)
{
    Node* before = newest.exchange(node);
    before->next.store(node, std::memory_order_release);
}

void MessageQueue::post(Message message)
{
    if (closed) return;
    Node* node = new Node;
    node->message = std::move(message);
    append(node);
    wake();
}

void MessageQueue::postFromSlice(Message message)
{
    if (closed.load(std::memory_order_relaxed)) return;
    Node* node = pool.take();
    if (node == nullptr) node = new Node;
    node->next.store(nullptr, std::memory_order_relaxed);
    node->message = std::move(message);
    append(node);
}

void MessageQueue::wake()
{
    // Both sides exchange: either the consumer's exchange came first and it is woken here, or it comes later and reads
    // what was appended before this line.
    if (sleeping.exchange(false)) wakeConsumer();
    if (closed) freeWaiting();
}

void MessageQueue::wakeConsumer()
{
    if (callWaker)
        callWaker();
    else
        awake.set();
}

bool MessageQueue::take(Message& message)
{
    Node* next = current->next.load(std::memory_order_acquire);
    if (next == nullptr) return false;
    message = std::move(next->message);
    current = next;
    return true;
}

void MessageQueue::finish()
{
    ++handledSoFar;  // first, so that a thread that reads the queue as drained also reads the new count
    handled = current;
    while (oldest != current) {
        Node* free = oldest;
        oldest = oldest->next.load(std::memory_order_relaxed);
        if (!pool.give(free)) delete free;
    }
}

bool MessageQueue::fallAsleep()
{
    sleeping.exchange(true);
    if (current->next.load(std::memory_order_acquire) == nullptr) return true;
    sleeping.exchange(false);
    return false;
}

void MessageQueue::waitForMessage()
{
    while (current->next.load(std::memory_order_acquire) == nullptr)
        if (fallAsleep()) awake.wait();
}

bool MessageQueue::waitForMessage(std::chrono::milliseconds longest)
{
    if (current->next.load(std::memory_order_acquire) == nullptr && fallAsleep()) awake.waitFor(longest);
    return current->next.load(std::memory_order_acquire) != nullptr;
}

void MessageQueue::close()
{
    closed = true;
    freeWaiting();
}

void MessageQueue::open()
{
    const MutexLock alone(closing);
    closed = false;
}

void MessageQueue::freeWaiting()
{
    const MutexLock alone(closing);
    if (!closed) return;
    while (handleNext([](Message&) {})) {}
}
