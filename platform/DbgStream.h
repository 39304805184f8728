#pragma once

#include <sstream>
#include <string>

#include "platform/Export.h"

namespace WindowsLib
{
/// One line of the debug stream, written as a whole when the object goes: `DbgStream() << "no port " << index;`
/// The lines go to standard error when the environment holds ORVANE_DEBUG=1 and nowhere otherwise. What the system
/// drops silently by design is told here. Any thread, but never inside a time slice: writing is a system call.
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
