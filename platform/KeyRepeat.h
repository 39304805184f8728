#pragma once

#include <cstdint>

#include "platform/Export.h"

/// How a key that is held repeats.
struct KeyRepeat {
    std::uint32_t delay = 500;    ///< milliseconds from the press to the first repeat
    std::uint32_t interval = 33;  ///< milliseconds from one repeat to the next

    bool operator==(const KeyRepeat&) const = default;
};

/// As the user has set the desktop's keyboard; the values above where there is no desktop or it does not say. Asks the
/// display, so it may wait for it.
ORV_API KeyRepeat getKeyRepeat();
