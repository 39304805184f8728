#pragma once

#include <vector>

#include "backend/model/Oscillator.h"
#include "backend/model/SectionList.h"
#include "platform/Export.h"

namespace Backend::Oscillators
{
/// The oscillators in the order in which they are played, the element `Oscillators`.
class ORV_API OscList final : public Layers::SectionList<Oscillator, OscId>
{
public:
    const std::vector<Oscillator>& getOscillators() const { return elements; }
};
}  // namespace Backend::Oscillators
