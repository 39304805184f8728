#pragma once

#include <functional>
#include <string>

#include "host/common/InputError.h"
#include "tests/stage/TemporaryFolder.h"

namespace Host::Testing
{
/// The line that the user gets, "" if nothing is wrong.
inline std::string complaintOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const InputError& error) {
        return error.what();
    }
    return "";
}

using ::TemporaryFolder;
}  // namespace Host::Testing
