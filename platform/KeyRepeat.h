#pragma once

#include <cstdint>

#include "platform/Export.h"

/// The repeat of a held key.
struct KeyRepeat {
    std::uint32_t delay = 500;    ///< milliseconds from the press to the first repeat
    std::uint32_t interval = 33;  ///< milliseconds from one repeat to the next

    bool operator==(const KeyRepeat&) const = default;
};

/// The user's setting of the desktop's keyboard; the default values above without a display. Waits for a reply of the
/// display.
ORV_API KeyRepeat getKeyRepeat();
