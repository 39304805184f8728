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
/// An object of the screen that keeps a value and sends it as MIDI events. A plain value.
struct ORV_API Control {
    Cell cell{};         ///< its place in the grid
    std::string name{};  ///< caption
    ControlType type{};
    std::int32_t value = 0;
    std::int32_t min = 0;                      ///< one end of the range
    std::int32_t max = 127;                    ///< the other; below `min` it turns the control round
    std::int32_t release = -1;                 ///< the value to go back to when the mouse lets go, -1 for none
    bool autoSend = false;                     ///< send when the program is loaded
    std::int32_t size = 1;                     ///< for faders: how many cells they span
    std::vector<ControlFunction> functions{};  ///< what it sends; it follows the first
    bool selected = false;                     ///< selected controls move together; not saved

    /// From a `Control` element; what is absent is as above. A value outside the range becomes its nearer end.
    static Control fromXml(const XmlElement& element);
    /// The element, one tag a line after `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    /// Takes a value, or the end of the range that is nearer.
    void store(std::int64_t newValue);

    bool operator==(const Control&) const = default;
};
}  // namespace Backend::Controls
