#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "backend/engine/HeldNotes.h"
#include "backend/engine/InputTranslations.h"
#include "backend/model/MidiEventConfigurationMap.h"
#include "backend/model/MidiPort.h"
#include "backend/model/ProgramChangeInput.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
/// Which inputs have deferred events: those that take the way through the backend, because they execute a function.
/// Every later event of such an input is deferred too until all that the deferred ones made has been played, so the
/// order of an input's events never changes. The backend queues a marker behind what a deferred event made; when as
/// many came due as events were deferred, the input plays at once again. Any thread, without a lock.
class DeferredEvents
{
public:
    static constexpr std::size_t INPUTS = 128;

    /// An event of that input is deferred. Below 0 it is ignored.
    void add(int input)
    {
        if (input >= 0) counts[at(input)].fetch_add(1, std::memory_order_acq_rel);
    }
    /// A marker came due.
    void settle(int input)
    {
        if (hasAny(input)) counts[at(input)].fetch_sub(1, std::memory_order_acq_rel);
    }
    bool hasAny(int input) const { return input >= 0 && counts[at(input)].load(std::memory_order_acquire) > 0; }

private:
    static constexpr std::size_t at(int input) { return static_cast<std::size_t>(input) % INPUTS; }

    std::array<std::atomic<std::uint32_t>, INPUTS> counts{};
};

/// What the engine keeps of the MIDI inputs: which are enabled, how their events are translated, and which notes they
/// hold.
class LiveInputs
{
public:
    static constexpr std::size_t INPUTS = DeferredEvents::INPUTS;
    using Held = std::array<std::unique_ptr<HeldNotes>, INPUTS>;

    /// How an event is played.
    struct Way {
        bool isDirect = false;                                     ///< at once; else through the backend
        const MidiInput::MidiEventConfiguration* entry = nullptr;  ///< what it is translated by, if anything
    };
    /// `received` as `MidiEventConfigurationMap::asReceived` gives it.
    Way findWay(const OrvMidiMessage& received) const;
    /// The way of an event by these translations.
    static Way findWay(const OrvMidiMessage& received, const MidiInput::MidiEventConfigurationMap& map)
    {
        const auto* const entry = map.findTranslations(received);
        return {.isDirect = entry == nullptr || !entry->executesFunction(received), .entry = entry};
    }
    bool takesEvents(int input) const { return input >= 0 && enabled[static_cast<std::size_t>(input)]; }

    /// Calls `play(OrvMidiMessage&)` for each event that is played for one that goes the direct way.
    template <class Play>
    static void translate(const Way& way, OrvMidiMessage received, Play&& play)
    {
        if (way.entry != nullptr) return way.entry->forEachResult(received, play);
        received.setDefaultChannel(true);  // the layers set the channel
        play(received);
    }

    /// Records an event of an input for the notes that it holds.
    void follow(const OrvMidiMessage& event);

    // What the backend changes

    /// Takes over `room` for inputs that hold no notes yet. Inputs outside the list are disabled.
    void setPorts(const MidiInputPorts& ports, Held& room);
    InputTranslations& getTranslations() { return translations; }
    void setProgramChangeInput(const ProgramChangeInput& input) { programChanges = input; }
    /// Exchanges the notes that an input holds.
    void swapHeld(std::size_t input, std::unique_ptr<HeldNotes>& notes)
    {
        if (input < INPUTS && held[input]) held[input].swap(notes);
    }

private:
    std::array<bool, INPUTS> enabled{};
    Held held;
    InputTranslations translations;
    ProgramChangeInput programChanges;
};
}  // namespace Backend::MidiEngine
