#pragma once

#include <iosfwd>
#include <span>

#include "backend/model/Control.h"
#include "backend/values/ElementMap.h"
#include "platform/Export.h"

namespace Backend::Controls
{
/// The controls by their cells, walked row by row.
class ORV_API ControlMap final : public Component::ElementMap<Control, Cell>
{
public:
    /// The grid: selection moves through rows and columns 0 to 15.
    static constexpr std::int32_t ROWS = 16;
    static constexpr std::int32_t COLUMNS = 16;

    using ElementMap::put;
    /// Takes the place of what stands at its cell.
    void put(Control control);

    /// A `Controls` element: its controls replace those here, or with "merge" join them. The last of a cell counts.
    void readXml(const XmlElement& section);
    /// The element, one tag a line after `indent` TABs: the controls of `cells`, to be merged, or without cells all.
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

    /// The first that is selected, or null.
    Control* findSelected();
};
}  // namespace Backend::Controls
