#pragma once

#include <cstdint>
#include <optional>

namespace Host
{
/// The messages that arrived in a period of the graph, by their frame. Process callback.
class PeriodInputs
{
public:
    virtual ~PeriodInputs() = default;

    /// The frame of the next message, from the start of the period; nothing if there is none.
    virtual std::optional<std::uint32_t> nextFrame() = 0;
    virtual void playNext() = 0;
};
}  // namespace Host
