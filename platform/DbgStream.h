#pragma once

#include <sstream>
#include <string>

#include "platform/Export.h"

namespace WindowsLib
{
/// One line of the debug stream, written as a whole by the destructor: `DbgStream() << "no port " << index;`
/// If the environment variable ORVANE_DEBUG is 1 the lines go to standard error, on Windows also to a debugger, and
/// then without the variable too; otherwise nowhere. They report what is ignored without an error. Any thread, but
/// never in a time slice: writing is a system call.
class ORV_API DbgStream
{
public:
    DbgStream() = default;
    ~DbgStream();

    DbgStream(const DbgStream&) = delete;
    DbgStream& operator=(const DbgStream&) = delete;

    template <class Value>
    DbgStream& operator<<(const Value& value)
    {
        if (isEnabled()) line << value;
        return *this;
    }

    static bool isEnabled();

private:
    std::ostringstream line;
};
}  // namespace WindowsLib
