#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>

namespace Host
{
/// Ports by number. One thread adds ports while any thread reads, without a lock. A port keeps its number and its
/// address for the lifetime of the table.
template <class PortType>
class PortTable
{
public:
    /// Port numbers are signed bytes.
    static constexpr std::size_t MOST = 127;

    /// Gives the port the next number. Null if there are `MOST` ports already. The adding thread.
    PortType* add(std::unique_ptr<PortType> port)
    {
        const std::size_t number = size();
        if (number == MOST) return nullptr;
        ports[number] = std::move(port);
        count.store(number + 1, std::memory_order_release);
        return ports[number].get();
    }

    std::size_t size() const { return count.load(std::memory_order_acquire); }
    const std::unique_ptr<PortType>& operator[](std::size_t number) const { return ports[number]; }
    auto begin() const { return ports.begin(); }
    auto end() const { return ports.begin() + size(); }

private:
    std::array<std::unique_ptr<PortType>, MOST> ports;
    std::atomic<std::size_t> count{0};
};
}  // namespace Host
