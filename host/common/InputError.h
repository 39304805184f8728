#pragma once

#include <stdexcept>

namespace Host
{
/// Invalid input: a file, a line or an option. The text is one line for the user that names the file and the position
/// in it, if it has one ("demo.perf:12: ...", "song.mid: byte 27: ..."). The program prints it on standard error and
/// ends with status 2. Thrown by the host only; the library throws nothing.
class InputError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
}  // namespace Host
