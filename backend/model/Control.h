#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "backend/model/ControlFunction.h"
#include "backend/model/ControlType.h"
#include "backend/values/Cell.h"
#include "platform/Export.h"

class XmlElement;

namespace Backend::Controls
{
/// A control of the screen, which has a value and sends it as MIDI events. A plain value.
struct ORV_API Control {
    Cell cell{};         ///< its cell in the grid
    std::string name{};  ///< caption
    ControlType type{};
    std::int32_t value = 0;
    std::int32_t min = 0;                      ///< one end of the range
    std::int32_t max = 127;                    ///< the other; below `min` it reverses the control
    std::int32_t release = -1;                 ///< the value after the mouse button is released, -1 for none
    bool autoSend = false;                     ///< sends when the program is loaded
    std::int32_t size = 1;                     ///< of faders, in cells
    std::vector<ControlFunction> functions{};  ///< the events that it sends; it follows the first
    bool selected = false;                     ///< selected controls move together; not stored

    /// From a `Control` element; absent attributes have the defaults above. A value outside the range is limited to it.
    static Control fromXml(const XmlElement& element);
    /// Writes the element, one tag a line, indented by `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    /// Sets the value, limited to the range.
    void store(std::int64_t newValue);

    bool operator==(const Control&) const = default;
};
}  // namespace Backend::Controls
