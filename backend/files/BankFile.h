#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "backend/files/BankScanner.h"
#include "backend/xml/XmlElement.h"
#include "platform/Export.h"

namespace Backend
{
/// The programs in a file: a bank's, or the only one of a program file. The file is read and checked as a whole once;
/// from then on a program is read from its place alone, however many there are. A file that another program has changed
/// since is read again. Whatever is written replaces the file whole, and every byte outside the programs in
/// question stays what it was. What cannot be done changes nothing and is written to the debug stream.
/// See docs/decisions/0010.
class ORV_API BankFile
{
public:
    static constexpr std::size_t MAX_SIZE = 256u << 20;  ///< bytes; a program of our own takes some 20000
    static constexpr int MAX_PROGRAMS = 10000;           ///< what a bank can be made to have

    /// Takes a file for its own. False if it cannot be read or is no XML document; then it has no programs.
    bool open(const std::string& path);

    /// In file order.
    const std::vector<std::string>& getProgramNames() const { return names; }

    /// The `Program` element of that number, from 0; no element if there is none.
    XmlElement readProgram(int number);

    /// Puts an element, with its line end, in the place of a program. False, and nothing is written, if there is no
    /// such program, or what was given is no `Program` element.
    bool replaceProgram(int number, std::string_view element);

    /// Cuts programs off at the end of the file, or appends empty ones. False if that is not written.
    bool resize(int programs);

private:
    /// Shows whether another program wrote to the file.
    struct Stamp {
        std::filesystem::file_time_type time{};
        std::uintmax_t size = 0;

        bool operator==(const Stamp&) const = default;
    };

    static Stamp stampOf(const std::string& path);
    bool isUnchanged() const { return isRead && stampOf(path) == stamp; }
    bool readText(std::string& text) const;
    bool load(std::string& text);
    bool hasProgram(int number) const { return number >= 0 && static_cast<std::size_t>(number) < names.size(); }
    XmlElement fetch(std::size_t number) const;
    bool takeNames(std::string_view text);
    bool write(const std::string& text);
    bool refuse(std::string_view reason) const;

    std::string path;
    bool isRead = false;
    Stamp stamp;
    ElementLayout layout;
    std::vector<std::string> names;
};
}  // namespace Backend
