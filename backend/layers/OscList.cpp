#include "backend/layers/OscList.h"

#include <algorithm>
#include <ostream>

#include "backend/persistence/XmlElement.h"
#include "backend/persistence/XmlWriter.h"

namespace Backend::Oscillators
{
void OscList::add(Oscillator oscillator)
{
    oscillator.id = static_cast<OscId>(elements.size());
    elements.push_back(oscillator);
}

void OscList::put(const Oscillator& oscillator)
{
    if (oscillator.id < 0 || oscillator.id >= MAX_OSCILLATORS) return;
    while (elements.size() <= static_cast<std::size_t>(oscillator.id)) add({});
    elements[static_cast<std::size_t>(oscillator.id)] = oscillator;
}

void OscList::readXml(const XmlElement& section)
{
    if (!section.getBoolAttribute("merge", false)) clear();
    forEachElement(section, [this](const XmlElement& child) {
        if (child.getTagName() == "Oscillator" && elements.size() < MAX_OSCILLATORS)
            add(Oscillator::fromXml(child, static_cast<OscId>(elements.size())));
    });
}

void OscList::writeXml(std::ostream& out, int indent, std::span<const OscId> ids) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag("Oscillators") << xmlBoolAttribute("merge", !ids.empty()) << xmlCloseOpen() << '\n';
    for (const Oscillator& oscillator : elements)
        if (ids.empty() || std::ranges::find(ids, oscillator.id) != ids.end()) oscillator.writeXml(out, indent + 1);
    out << tabs << xmlEndTag("Oscillators") << '\n';
}
}  // namespace Backend::Oscillators
