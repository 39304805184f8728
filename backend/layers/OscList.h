#pragma once

#include <vector>

#include "backend/layers/Oscillator.h"
#include "backend/layers/SectionList.h"
#include "platform/Export.h"

namespace Backend::Oscillators
{
/// The oscillators in the order in which they play, an `Oscillators` element.
class ORV_API OscList final : public Layers::SectionList<Oscillator, OscId>
{
public:
    const std::vector<Oscillator>& getOscillators() const { return elements; }
};
}  // namespace Backend::Oscillators
