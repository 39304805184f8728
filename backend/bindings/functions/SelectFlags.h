#pragma once

namespace Backend
{
/// What a picker offers for a function that selects items of a list or changes a setting of them.
struct SelectFlags {
    bool hasSelect;
    bool hasValue;
    bool allowUpDown;
    bool allowSelected;
    bool allowSpecific;
    bool allowAll;

    bool operator==(const SelectFlags&) const = default;
};

inline constexpr SelectFlags SELECTS{true, false, true, false, true, false};
inline constexpr SelectFlags CHANGES{true, true, false, true, true, true};
inline constexpr SelectFlags CHANGES_VALUE_ONLY{false, true, false, false, false, false};

/// The same for the grid of controls.
struct ControlFlags {
    bool allowArrows;
    bool allowSelected;
    bool hasValue;
    bool allowAll;

    bool operator==(const ControlFlags&) const = default;
};
}  // namespace Backend
