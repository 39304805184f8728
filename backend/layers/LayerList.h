#pragma once

#include <iosfwd>
#include <span>
#include <vector>

#include "backend/input/values/ElementList.h"
#include "backend/layers/Layer.h"

namespace Backend::Layers
{
/// The layers in order of processing. An id is a position, so whoever adds layers leaves the numbering to the list.
class ORV_API LayerList final : public Component::ElementList<Layer, LayerId>
{
public:
    const std::vector<Layer>& getLayers() const { return elements; }
    std::span<Layer> all() { return elements; }

    /// Appends the layer under the next id.
    void add(Layer layer);
    /// Takes the place of the layer of the same id, growing the list to it with default layers if need be. A negative
    /// id, and one of more than `MAX_LAYERS`, is ignored.
    void put(const Layer& layer);
    void clear() { elements.clear(); }

    /// A `Layers` element: its layers replace those here, or with "merge" join them.
    void readXml(const XmlElement& section);
    /// The element, one tag a line behind `indent` TABs: the layers of `ids`, to be merged, or without ids all of them.
    void writeXml(std::ostream& out, int indent, std::span<const LayerId> ids) const;

    static constexpr LayerId MAX_LAYERS = 10000;
};
}  // namespace Backend::Layers
