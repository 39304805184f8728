#include "backend/display/ReceivedEvents.h"

#include <algorithm>

#include "backend/model/MidiEvent.h"

namespace Backend::Display
{
using MidiInput::MidiEvent;

void ReceivedEvents::add(const MidiEngine::OrvMidiMessage& event)
{
    const auto same = std::ranges::find(events, MidiEvent::of(event), &MidiEvent::of);
    auto place = static_cast<std::size_t>(same - events.begin());
    if (same == events.end() && events.size() < MOST) {
        events.emplace_back();
        ages.emplace_back();
    } else if (same == events.end()) {
        place = static_cast<std::size_t>(std::ranges::min_element(ages) - ages.begin());
    }
    events[place] = event;
    ages[place] = ++lastAge;
    isChanged = true;
}
}  // namespace Backend::Display
