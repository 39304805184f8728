#include "backend/files/version2/Version2Import.h"

#include <algorithm>
#include <array>
#include <climits>
#include <sstream>
#include <vector>

#include "backend/files/version2/Blocks.h"
#include "backend/files/version2/Words.h"
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace Backend::Version2
{
namespace
{
using WindowsLib::DbgStream;

constexpr std::size_t LARGEST_SOURCE = 64u << 20;
constexpr char PROGRAM = 'P';

/// Skips up to ten numbers, which are not used. False if anything else follows.
bool passNumbers(Words& words)
{
    constexpr int MOST = 10;
    for (int i = 0; i < MOST; ++i) words.number(INT_MIN, INT_MAX, 0);
    return words.areUnderstood();
}

/// "P... <anything> <name> <up to ten numbers>".
std::string readName(const Lines& lines)
{
    Words words(lines.current());
    words.word();
    words.word();
    const std::string name = words.text();
    if (!passNumbers(words)) lines.report("something other than numbers after the program's name");
    return name;
}

void convertOneProgram(Lines& lines, std::ostream& out)
{
    const std::string name = readName(lines);
    lines.next();
    Sections sections = Sections::withDefaultKeys();
    readBlocks(lines, sections);
    sections.writeProgram(out, name);
}

/// Skips blocks that are no part of a program, up to the next program.
void passToProgram(Lines& lines)
{
    for (lines.passBlankLines(); !lines.atEnd() && lines.letter() != PROGRAM; lines.passBlankLines())
        lines.passBlock("no program begins here");
}

using Converter = std::string (*)(std::string_view name, std::string_view text);

enum class NoProgram { allowed, refused };

/// Whether the first line that is not blank is that of a program. A bank may have none.
bool isVersion2(Lines lines, NoProgram noProgram)
{
    lines.passBlankLines();
    if (lines.atEnd()) return noProgram == NoProgram::allowed;
    Words words(lines.current());
    words.word();
    words.word();
    return lines.letter() == PROGRAM && !words.word().empty() && passNumbers(words);
}

bool refuse(const std::string& source, std::string_view reason)
{
    DbgStream() << source << ": not imported: " << reason;
    return false;
}

bool readSource(const std::string& path, std::string& text)
{
    std::vector<std::uint8_t> bytes;
    const auto error = WholeFile::read(pathOf(path), LARGEST_SOURCE, bytes);
    if (error) DbgStream() << path << ": not read: " << error.message();
    text.assign(bytes.begin(), bytes.end());
    return !error;
}

bool import(const std::string& source, const std::string& target, NoProgram noProgram, Converter convert)
{
    std::string text;
    if (isSameFile(source, target)) return refuse(source, "it would replace itself");
    if (!readSource(source, text)) return false;
    if (!isVersion2(Lines(source, text), noProgram)) return refuse(source, "no file of version 2 with a program");
    const auto error = WholeFile::replace(pathOf(target), convert(source, text));
    if (error) DbgStream() << target << ": not written: " << error.message();
    return !error;
}

struct SectionKind {
    std::string_view word;
    PresetSection section;
    void (Sections::*write)(std::ostream& out, int indent, bool merge) const;
};
constexpr auto SECTION_KINDS =
    std::to_array<SectionKind>({{"key", PresetSections::COMPUTER_INPUT, &Sections::writeComputerInput},
                                {"midiin", PresetSections::MIDI_INPUT, &Sections::writeMidiInput},
                                {"control", PresetSections::CONTROLS, &Sections::writeControls},
                                {"layer", PresetSections::LAYERS, &Sections::writeLayers}});
}  // namespace

std::string convertBank(std::string_view name, std::string_view text)
{
    std::ostringstream out;
    out << xmlHeader() << "\n\n" << xmlStartTag("Bank") << '\n';
    Lines lines(name, text);
    for (passToProgram(lines); !lines.atEnd(); passToProgram(lines)) convertOneProgram(lines, out);
    out << xmlEndTag("Bank") << '\n';
    return out.str();
}

std::string convertProgram(std::string_view name, std::string_view text)
{
    std::ostringstream out;
    out << xmlHeader() << "\n\n" << xmlStartTag("ProgramFile") << '\n';
    Lines lines(name, text);
    lines.passBlankLines();
    if (lines.letter() == PROGRAM) convertOneProgram(lines, out);
    if (!lines.atEnd()) lines.report("not part of the program, nor is what follows");
    out << xmlEndTag("ProgramFile") << '\n';
    return out.str();
}

std::optional<Preset> convertPreset(std::string_view name, std::string_view text)
{
    Lines lines(name, text);
    const bool merge = lines.current() == "SELECTED";
    lines.next();
    const auto kind = std::ranges::find(SECTION_KINDS, Words(lines.current()).word(), &SectionKind::word);
    if (kind == SECTION_KINDS.end()) {
        lines.report("not a preset");
        return std::nullopt;
    }
    lines.next();
    Sections sections = Sections::withDefaultKeys();
    readBlocks(lines, sections);
    if (!lines.atEnd()) lines.report("not part of the preset, nor is what follows");
    std::ostringstream out;
    (sections.*kind->write)(out, 0, merge);
    return Preset{kind->section, out.str()};
}

bool isSameFile(const std::string& path, const std::string& other)
{
    std::error_code none;
    return std::filesystem::equivalent(pathOf(path), pathOf(other), none);
}

bool importBank(const std::string& source, const std::string& target)
{
    return import(source, target, NoProgram::allowed, convertBank);
}

bool importProgram(const std::string& source, const std::string& target)
{
    return import(source, target, NoProgram::refused, convertProgram);
}

std::optional<Preset> readPreset(const std::string& source)
{
    std::string text;
    return readSource(source, text) ? convertPreset(source, text) : std::nullopt;
}
}  // namespace Backend::Version2
