#pragma once

#include <vector>

#include "backend/model/Layer.h"
#include "backend/model/SectionList.h"
#include "platform/Export.h"

namespace Backend::Layers
{
/// The layers in order of processing, the element `Layers`.
class ORV_API LayerList final : public SectionList<Layer, LayerId>
{
public:
    const std::vector<Layer>& getLayers() const { return elements; }
};
}  // namespace Backend::Layers
