#pragma once

#include <optional>

#include "backend/engine/EngineLayerList.h"
#include "backend/engine/EngineOscList.h"
#include "platform/Event.h"
#include "platform/Worker.h"

namespace Backend::MidiEngine
{
/// One caller waiting for its own reset. Lives on that caller's stack until `done` is set.
struct ResetRequest {
    Event done;
    Worker* waiter = Worker::current();  ///< counts as resting until the reset was served; null for a foreign thread
    std::optional<Layers::EngineLayerList>
        layers;  ///< to be swapped in directly after the reset; afterwards the old ones
    std::optional<Oscillators::EngineOscList> oscillators;  ///< the same
    ResetRequest* next = nullptr;                           ///< among those that one slice served
};
}  // namespace Backend::MidiEngine
