#pragma once

#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// The name and type of a setting, for a host that stores it before a backend starts. Any thread.
struct ORV_API SettingInfo {
    enum class Kind {
        text,       ///< UTF-8
        onOff,      ///< 0 or 1
        number,     ///< signed, of 32 bits
        rectangle,  ///< left, top, right and bottom as such numbers, lowest byte first
    };

    const char* name;  ///< in the settings store
    Kind kind;

    /// Every setting, in the order in which they are written.
    static std::vector<SettingInfo> getTable();
};
}  // namespace Backend
