#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "host/common/InputError.h"

namespace Host
{
/// Reads a part of a Standard MIDI File from start to end. Reading past the end throws InputError with the file's name
/// and the byte offset from the start of the file. The bytes and the name must outlive this object.
class ByteCursor
{
public:
    ByteCursor(std::span<const std::uint8_t> fileBytes, const std::string& fileName)
        : file(fileBytes), name(&fileName), at(0), end(fileBytes.size())
    {
    }

    bool atEnd() const { return at == end; }
    std::size_t left() const { return end - at; }
    std::size_t position() const { return at; }

    std::uint8_t byte()
    {
        if (at == end) refuse("the data ends in the middle of an event or header");
        return file[at++];
    }

    /// `size` bytes, most significant first; at most 4.
    std::uint32_t bigEndian(int size)
    {
        std::uint32_t value = 0;
        while (size-- > 0) value = value << 8 | byte();
        return value;
    }

    /// A variable-length quantity of the SMF standard: seven bits a byte, at most four bytes.
    std::uint32_t variableLength()
    {
        std::uint32_t value = 0;
        for (int count = 0; count < 4; ++count) {
            const std::uint8_t next = byte();
            value = value << 7 | (next & 0x7Fu);
            if (next < 0x80) return value;
        }
        refuse("a variable-length number has more than four bytes");
    }

    /// The next `size` bytes as a part of their own; `what` names them in the error if there are fewer.
    ByteCursor take(std::uint32_t size, const char* what)
    {
        if (size > left())
            refuse(std::string(what) + " of " + std::to_string(size) + " bytes has only " + std::to_string(left()));
        ByteCursor part = *this;
        part.end = at += size;
        return part;
    }

    [[noreturn]] void refuse(const std::string& reason) const { refuse(at, reason); }
    [[noreturn]] void refuse(std::size_t position, const std::string& reason) const
    {
        throw InputError(*name + ": byte " + std::to_string(position) + ": " + reason);
    }

private:
    std::span<const std::uint8_t> file;
    const std::string* name;
    std::size_t at;
    std::size_t end;
};
}  // namespace Host
