#pragma once

#include <iosfwd>
#include <optional>
#include <span>

#include "backend/model/Control.h"
#include "backend/values/ElementMap.h"
#include "backend/values/SelectControlType.h"
#include "platform/Export.h"

namespace Backend::Controls
{
/// The controls by their cells, sorted by rows.
class ORV_API ControlMap final : public Component::ElementMap<Control, Cell>
{
public:
    /// The size of the grid: the selection moves through rows and columns 0 to 15.
    static constexpr std::int32_t ROWS = 16;
    static constexpr std::int32_t COLUMNS = 16;

    /// The next cell in a direction: left and right through the grid like text, up and down within the column. None at
    /// the edge of the grid, and for a kind that is no direction.
    static std::optional<Cell> step(Cell cell, SelectControlType::Kind direction);
    /// The cell before the first column or above the first row, from which the first step goes into the grid.
    static Cell getOutside(SelectControlType::Kind direction);

    using ElementMap::put;
    /// Adds a control, in place of the present one in its cell.
    void put(Control control);

    /// Reads a `Controls` element: its controls replace the present ones, or with "merge" only those in their cells.
    void readXml(const XmlElement& section);
    /// Writes the element, indented by `indent` TABs: the controls of `cells`, to be merged, or without cells all.
    void writeXml(std::ostream& out, int indent, std::span<const Cell> cells) const;

    template <class Visit>
    void forEach(Visit&& visit)
    {
        const auto iterator = createIterator();
        while (Control* control = iterator->next()) visit(*control);
    }
    template <class Visit>
    void forEach(Visit&& visit) const
    {
        const auto iterator = createIterator();
        while (const Control* control = iterator->next()) visit(*control);
    }

    /// The first selected control, or null.
    Control* findSelected();
};
}  // namespace Backend::Controls
