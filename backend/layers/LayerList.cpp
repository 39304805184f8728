#include "backend/layers/LayerList.h"

#include <algorithm>
#include <ostream>

#include "backend/persistence/XmlElement.h"
#include "backend/persistence/XmlWriter.h"

namespace Backend::Layers
{
void LayerList::add(Layer layer)
{
    layer.id = static_cast<LayerId>(elements.size());
    elements.push_back(std::move(layer));
}

void LayerList::put(const Layer& layer)
{
    if (layer.id < 0 || layer.id >= MAX_LAYERS) return;
    while (elements.size() <= static_cast<std::size_t>(layer.id)) add({});
    elements[static_cast<std::size_t>(layer.id)] = layer;
}

void LayerList::readXml(const XmlElement& section)
{
    if (!section.getBoolAttribute("merge", false)) clear();
    forEachElement(section, [this](const XmlElement& child) {
        if (child.getTagName() == "Layer" && elements.size() < MAX_LAYERS)
            add(Layer::fromXml(child, static_cast<LayerId>(elements.size())));
    });
}

void LayerList::writeXml(std::ostream& out, int indent, std::span<const LayerId> ids) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag("Layers") << xmlBoolAttribute("merge", !ids.empty()) << xmlCloseOpen() << '\n';
    for (const Layer& layer : elements)
        if (ids.empty() || std::ranges::find(ids, layer.id) != ids.end()) layer.writeXml(out, indent + 1);
    out << tabs << xmlEndTag("Layers") << '\n';
}
}  // namespace Backend::Layers
