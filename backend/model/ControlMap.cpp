#include "backend/model/ControlMap.h"

#include <algorithm>
#include <ostream>

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Controls
{
std::optional<Cell> ControlMap::step(Cell cell, SelectControlType::Kind direction)
{
    using Kind = SelectControlType::Kind;
    if (direction == Kind::up) --cell.row;
    if (direction == Kind::down) ++cell.row;
    if (direction == Kind::left && --cell.col < 0) cell = {cell.row - 1, COLUMNS - 1};
    if (direction == Kind::right && ++cell.col >= COLUMNS) cell = {cell.row + 1, 0};
    const bool isDirection = direction <= Kind::right;
    return isDirection && cell.row >= 0 && cell.row < ROWS ? std::optional(cell) : std::nullopt;
}

Cell ControlMap::getOutside(SelectControlType::Kind direction)
{
    return direction == SelectControlType::Kind::down ? Cell{-1, 0} : Cell{0, -1};
}

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
