#pragma once

#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// What a host must know of a setting to store it before a backend starts. Any thread.
struct ORV_API SettingInfo {
    enum class Kind {
        text,       ///< UTF-8
        onOff,      ///< 0 or 1
        number,     ///< of 32 bits, signed
        rectangle,  ///< left, top, right and bottom as such numbers, each with its lowest byte first
    };

    const char* name;  ///< in the settings store
    Kind kind;

    /// Every setting, in the order in which they are written.
    static std::vector<SettingInfo> getTable();
};
}  // namespace Backend
