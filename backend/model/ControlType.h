#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Backend::Controls
{
/// The look of a control. A label, and one without a look, never sends.
struct ControlType {
    enum class Kind : std::int32_t { none = 0, edit = 1, vfader = 2, hfader = 3, knob = 4, label = 5 };

    Kind kind = Kind::none;

    /// From "edit", "vfader", "hfader", "knob" or "label", with blanks around it; any other text is none.
    static ControlType fromXmlString(std::string_view text);
    /// The same words; empty for none.
    std::string toXmlString() const;

    bool sends() const { return kind != Kind::none && kind != Kind::label; }

    bool operator==(const ControlType&) const = default;
};
}  // namespace Backend::Controls
