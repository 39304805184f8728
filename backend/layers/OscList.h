#pragma once

#include <iosfwd>
#include <span>
#include <vector>

#include "backend/input/values/ElementList.h"
#include "backend/layers/Oscillator.h"

namespace Backend::Oscillators
{
/// The oscillators in the order in which they play. An id is a position, so whoever adds oscillators leaves the
/// numbering to the list.
class ORV_API OscList final : public Component::ElementList<Oscillator, OscId>
{
public:
    const std::vector<Oscillator>& getOscillators() const { return elements; }
    std::span<Oscillator> all() { return elements; }

    /// Appends the oscillator under the next id.
    void add(Oscillator oscillator);
    /// Takes the place of the oscillator of the same id, growing the list to it with default ones if need be. A
    /// negative id, and one of `MAX_OSCILLATORS` or more, is ignored.
    void put(const Oscillator& oscillator);
    void clear() { elements.clear(); }

    /// An `Oscillators` element: its oscillators replace those here, or with "merge" join them.
    void readXml(const XmlElement& section);
    /// The element, one tag a line behind `indent` TABs: the oscillators of `ids`, to be merged, or without ids all.
    void writeXml(std::ostream& out, int indent, std::span<const OscId> ids) const;

    static constexpr OscId MAX_OSCILLATORS = 10000;
};
}  // namespace Backend::Oscillators
