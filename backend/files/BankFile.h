#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "backend/files/BankScanner.h"
#include "backend/xml/XmlElement.h"
#include "platform/Export.h"

namespace Backend
{
/// A program of a bank whose programs are put into another order.
struct ArrangedProgram {
    int number = -1;                    ///< that it has now; below 0 for one that the bank does not have yet
    std::string before{};               ///< then what stands before it in the file
    std::string element{};              ///< then its `Program` element
    std::optional<std::string> name{};  ///< a new name

    bool operator==(const ArrangedProgram&) const = default;
};
using Arrangement = std::vector<ArrangedProgram>;

/// A bank file, or a program file with one program. The file is read and checked as a whole once; after that a program
/// is read from its place alone, in any size of bank. If another program has changed the file, it is read again.
/// Writing replaces the file as a whole, and keeps every byte outside the programs that are written. An operation that
/// fails changes nothing and writes a line to the debug stream.
/// See docs/decisions/0010.
class ORV_API BankFile
{
public:
    static constexpr std::size_t MAX_SIZE = 256u << 20;  ///< bytes; a program that Orvane writes has some 20000
    static constexpr int MAX_PROGRAMS = 10000;           ///< the highest size of a bank

    /// Sets the file. False if it cannot be read or is no XML document; then it has no programs.
    bool open(const std::string& path);

    /// In file order.
    const std::vector<std::string>& getProgramNames() const { return names; }

    /// The `Program` element of that number, from 0; no element if there is none.
    XmlElement readProgram(int number);

    /// Replaces a program by an element with its line end. False, and nothing is written, if there is no such program,
    /// or the text is no `Program` element.
    bool replaceProgram(int number, std::string_view element);

    /// Sets the file to one that is not there yet, and writes a bank whose last program is this element, with empty
    /// ones before it. False, and nothing is written, if the file is there or the text is no `Program` element.
    bool create(const std::string& newPath, int number, std::string_view element);

    /// The text of the `Program` element of that number; empty if there is none. If the file has just been changed by
    /// another program, it may be any text.
    std::string readText(int number);

    /// Puts the programs into that order, at least one; those that are not named are removed. What stands before a
    /// program since the one before it, as a comment, goes with it; what stands before the first one stays. Returns
    /// what leads back; nothing, and nothing is written, if a number is unknown or named twice, a text is no `Program`
    /// element, or the file could not be written.
    std::optional<Arrangement> arrange(const Arrangement& programs);

    /// A well-formed `Program` element with another name and all its other bytes.
    static std::string renamed(std::string element, const std::string& name);

    /// Writes what the file has as another one, replacing what is there, and sets the file to that. False, and nothing
    /// is changed, if it could not be read or written.
    bool saveAs(const std::string& newPath);

    /// False if the file has changed since it was read or written.
    bool isUnchanged() const { return isRead && stampOf(path) == stamp; }

    /// Removes programs from the end of the file, or appends empty ones. False if the file could not be written.
    bool resize(int programs);

private:
    /// Time and size of the file, by which changes are noticed.
    struct Stamp {
        std::filesystem::file_time_type time{};
        std::uintmax_t size = 0;

        bool operator==(const Stamp&) const = default;
    };

    static Stamp stampOf(const std::string& path);
    bool readFile(std::string& text) const;
    std::string read(const TextSpan& place) const;
    bool load(std::string& text);
    bool hasProgram(int number) const { return number >= 0 && static_cast<std::size_t>(number) < names.size(); }
    XmlElement fetch(std::size_t number) const;
    std::optional<Arrangement> invert(const Arrangement& programs, std::string_view text) const;
    TextSpan gapBefore(std::string_view text, std::size_t number) const;
    ArrangedProgram cut(std::string_view text, std::size_t number) const;
    bool takeNames(std::string_view text);
    bool write(const std::string& text);
    bool refuse(std::string_view reason) const;

    std::string path;
    bool isRead = false;
    Stamp stamp;
    std::size_t hash = 0;  // of the whole text, because two writes may have the same stamp
    ElementLayout layout;
    std::vector<std::string> names;
};
}  // namespace Backend
