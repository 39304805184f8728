#pragma once

namespace Backend
{
/// What the backend reports to the user besides the results of commands. Each has a text: the program's number as it is
/// shown, or the path of the file.
enum class Notice {
    noSuchProgram,     ///< an input asked for a program that the bank does not have
    setListChanged,    ///< another program has changed the file, which was read again
    setListNotWritten  ///< the file could not be written
};
}  // namespace Backend
