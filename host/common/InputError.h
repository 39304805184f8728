#pragma once

#include <stdexcept>

namespace Host
{
/// What came from outside cannot be used: a file, a line, an option. The text is one line for the user that names the
/// file and, where there is one, the position in it ("demo.perf:12: ...", "song.mid: byte 27: ..."). The program prints
/// it on standard error and ends with status 2. Thrown by the host alone; the library below it throws nothing.
class InputError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
}  // namespace Host
