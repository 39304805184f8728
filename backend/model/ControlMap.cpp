#include "backend/model/ControlMap.h"

#include <algorithm>
#include <ostream>

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Controls
{
void ControlMap::put(Control control)
{
    const Cell cell = control.cell;
    put(cell, std::move(control));
}

void ControlMap::readXml(const XmlElement& section)
{
    if (!section.getBoolAttribute("merge", false)) clear();
    forEachElement(section, [this](const XmlElement& child) {
        if (child.getTagName() == "Control") put(Control::fromXml(child));
    });
}

void ControlMap::writeXml(std::ostream& out, int indent, std::span<const Cell> cells) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag("Controls") << xmlBoolAttribute("merge", !cells.empty()) << xmlCloseOpen() << '\n';
    forEach([&](const Control& control) {
        if (cells.empty() || std::ranges::find(cells, control.cell) != cells.end()) control.writeXml(out, indent + 1);
    });
    out << tabs << xmlEndTag("Controls") << '\n';
}

Control* ControlMap::findSelected()
{
    const auto iterator = createIterator();
    while (Control* control = iterator->next())
        if (control->selected) return control;
    return nullptr;
}
}  // namespace Backend::Controls
