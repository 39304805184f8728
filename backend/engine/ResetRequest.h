#pragma once

#include <optional>

#include "backend/engine/EngineLayerList.h"
#include "backend/engine/EngineOscList.h"
#include "platform/Event.h"
#include "platform/Worker.h"

namespace Backend::MidiEngine
{
/// A caller that waits for its reset, or for a replacement without one. It is on the caller's stack, and valid until
/// `done` is set.
struct ResetRequest {
    Event done;
    Worker* waiter = Worker::current();  ///< at rest until the reset was executed; null for any other thread
    std::optional<Layers::EngineLayerList>
        layers;  ///< swapped in directly after the reset, or without one; the old ones afterwards
    std::optional<Oscillators::EngineOscList> oscillators;  ///< the same
    std::optional<bool> keepNotes;  ///< whether later lists replace the present ones without a reset
    ResetRequest* next = nullptr;   ///< the next request executed in the same slice
};
}  // namespace Backend::MidiEngine
