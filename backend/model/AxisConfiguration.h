#pragma once

#include <iosfwd>
#include <vector>

#include "backend/model/AxisFunction.h"
#include "backend/model/JoyAxisElementId.h"
#include "platform/Export.h"

namespace Backend::Joystick
{
/// The events that an axis sends, in order.
struct ORV_API AxisConfiguration {
    JoyAxisElementId id{};
    std::vector<AxisFunction> functions{};

    bool isEmpty() const { return functions.empty(); }

    /// From an "Axis" element; without the name of an axis the id is not valid.
    static AxisConfiguration fromXml(const XmlElement& element);
    void writeXml(std::ostream& out, int indent) const;

    bool operator==(const AxisConfiguration&) const = default;
};
}  // namespace Backend::Joystick
