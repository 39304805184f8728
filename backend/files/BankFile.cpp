#include "backend/files/BankFile.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <utility>

#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace Backend
{
namespace
{
constexpr const char* PROGRAM = "Program";

XmlElement parse(std::string_view text) { return XmlDocument(text, XmlDocument::Source::text).getRoot(); }

std::size_t hashOf(std::string_view text) { return std::hash<std::string_view>()(text); }

/// Whether the text is a `Program` element with nothing before it but blanks.
bool isProgram(std::string_view text)
{
    return parse(text).getTagName() == PROGRAM && text.substr(text.find('<')).starts_with(xmlOpenTag(PROGRAM));
}

std::size_t sizeOfNew(const Arrangement& programs)
{
    std::size_t size = 0;
    for (const ArrangedProgram& program : programs)
        size += program.before.size() + program.element.size() + (program.name ? program.name->size() : 0) + 1;
    return size;
}

std::string emptyProgram()
{
    return xmlOpenTag(PROGRAM) + xmlStringAttribute("name", "Empty") + xmlCloseOpen() + "\n" + xmlEndTag(PROGRAM) +
           "\n";
}

/// A line break, unless what is at `place` begins a line.
const char* lineBreakBefore(std::string_view text, std::size_t place)
{
    return place == 0 || text[place - 1] == '\n' ? "" : "\n";
}

/// The document without its programs.
std::string withoutPrograms(std::string_view text, const ElementLayout& layout)
{
    std::string rest;
    std::size_t from = 0;
    for (const TextSpan& program : layout.elements) {
        rest += text.substr(from, program.begin - from);
        from = program.end;
    }
    return rest += text.substr(from);
}

auto lineOf(std::string_view text, std::size_t place) { return 1 + std::ranges::count(text.substr(0, place), '\n'); }
}  // namespace

bool BankFile::open(const std::string& newPath)
{
    if (newPath == path && isUnchanged()) return true;
    isRead = isRead && newPath == path;
    path = newPath;
    std::string text;
    return load(text);
}

BankFile::Stamp BankFile::stampOf(const std::string& path)
{
    std::error_code none;
    return {std::filesystem::last_write_time(pathOf(path), none), std::filesystem::file_size(pathOf(path), none)};
}

bool BankFile::readFile(std::string& text) const
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(pathOf(path), error)) return refuse("no file that can be read");
    std::vector<std::uint8_t> bytes;
    if ((error = WholeFile::read(pathOf(path), MAX_SIZE, bytes))) return refuse(error.message());
    text.assign(bytes.begin(), bytes.end());
    return true;
}

/// Reads the text and, if the file was changed, its programs.
bool BankFile::load(std::string& text)
{
    const Stamp now = stampOf(path);
    const bool isKnown = std::exchange(isRead, false) && now == stamp;
    stamp = now;
    isRead = readFile(text) && ((isKnown && hashOf(text) == hash) || takeNames(text));
    if (!isRead) {
        layout = {};
        names.clear();
    }
    return isRead;
}

/// Reads the names. Each program and the document without programs are parsed, which together checks the whole
/// document.
bool BankFile::takeNames(std::string_view text)
{
    names.clear();
    auto found = scanElements(text, PROGRAM);
    if (!found) return refuse("start tags and end tags do not match");
    if (!parse(withoutPrograms(text, *found)).hasElement())
        return refuse("the document around the programs is not well-formed");
    for (const TextSpan& program : found->elements) {
        const XmlElement element = parse(program.of(text));
        if (element.getTagName() != PROGRAM)
            return refuse("the program at line " + std::to_string(lineOf(text, program.begin)));
        names.push_back(element.getAttribute("name"));
    }
    layout = std::move(*found);
    hash = hashOf(text);
    return true;
}

XmlElement BankFile::readProgram(int number)
{
    std::string text;
    if (!isUnchanged() && !load(text)) return {};
    if (!hasProgram(number)) return {};
    const XmlElement element = fetch(static_cast<std::size_t>(number));
    if (element.hasElement()) return element;
    // Another program may have written it again within one tick of the file system's clock.
    isRead = false;
    return load(text) && hasProgram(number) ? fetch(static_cast<std::size_t>(number)) : XmlElement();
}

std::string BankFile::readText(int number)
{
    std::string text;
    const bool isThere = (isUnchanged() || load(text)) && hasProgram(number);
    return isThere ? read(layout.elements[static_cast<std::size_t>(number)]) : std::string();
}

std::string BankFile::read(const TextSpan& place) const
{
    std::string text(place.end - place.begin, '\0');
    std::ifstream file(pathOf(path), std::ios::binary);
    file.seekg(static_cast<std::streamoff>(place.begin));
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    return text;
}

/// Reads the program from its place in the file; no element if it is not there.
XmlElement BankFile::fetch(std::size_t number) const
{
    const XmlElement element = parse(read(layout.elements[number]));
    return element.getTagName() == PROGRAM && element.getAttribute("name") == names[number] ? element : XmlElement();
}

bool BankFile::replaceProgram(int number, std::string_view element)
{
    const XmlElement program = parse(element);
    if (program.getTagName() != PROGRAM) return refuse("the program to be saved is not well-formed");
    std::string text;
    if (!load(text)) return false;
    if (!hasProgram(number)) return refuse("no program " + std::to_string(number));

    const auto index = static_cast<std::size_t>(number);
    const TextSpan old = withItsLines(text, layout.elements[index]);
    const std::string_view separator = lineBreakBefore(text, old.begin);
    text.replace(old.begin, old.end - old.begin, std::string(separator) + std::string(element));
    if (!write(text)) return false;

    // The programs after it have moved.
    const std::size_t begin = old.begin + separator.size();
    const std::size_t growth = separator.size() + element.size() - (old.end - old.begin);  // modulo 2^64
    for (std::size_t i = index + 1; i < layout.elements.size(); ++i) layout.elements[i].moveBy(growth);
    layout.rootEnd.moveBy(growth);
    layout.elements[index] = {begin, begin + element.rfind('>') + 1};
    names[index] = program.getAttribute("name");
    return true;
}

std::optional<Arrangement> BankFile::arrange(const Arrangement& programs)
{
    std::string text;
    if (!load(text)) return std::nullopt;
    auto back = invert(programs, text);
    if (!back) {
        refuse("its programs cannot be put into that order");
        return std::nullopt;
    }
    std::string newText;
    newText.reserve(text.size() + sizeOfNew(programs));
    newText.append(text, 0, withItsLines(text, layout.elements.front()).begin);
    ElementLayout newLayout{.elements = {}, .rootName = layout.rootName, .rootEnd = layout.rootEnd};
    std::vector<std::string> newNames;
    for (const ArrangedProgram& program : programs) {
        const bool isNew = program.number < 0;
        const auto number = static_cast<std::size_t>(program.number);
        std::string_view element = isNew ? program.element : withItsLines(text, layout.elements[number]).of(text);
        const std::string other = program.name ? renamed(std::string(element), *program.name) : "";
        if (program.name) element = other;
        newNames.push_back(program.name ? *program.name : isNew ? parse(element).getAttribute("name") : names[number]);
        newText += isNew ? program.before : gapBefore(text, number).of(text);
        if (isNew && program.before.empty()) newText += lineBreakBefore(newText, newText.size());
        newLayout.elements.push_back({newText.size() + element.find('<'), newText.size() + element.rfind('>') + 1});
        newText += element;
    }
    const std::size_t end = withItsLines(text, layout.elements.back()).end;
    newLayout.rootEnd.moveBy(newText.size() - end);
    newText.append(text, end);
    if (!write(newText)) return std::nullopt;
    layout = std::move(newLayout);
    names = std::move(newNames);
    return back;
}

std::string BankFile::renamed(std::string text, const std::string& name)
{
    constexpr std::string_view BLANKS = " \t\r\n";
    const std::string tag = xmlOpenTag(PROGRAM);
    const std::size_t first = text.find(tag) + tag.size();
    const std::string attribute = xmlStringAttribute("name", name);
    std::size_t end = first;
    for (std::size_t begin = first;; begin = end) {
        const std::size_t key = text.find_first_not_of(BLANKS, begin);
        if (text[key] == '>' || text[key] == '/') return text.insert(first, attribute);
        const std::size_t quote = text.find_first_of("\"'", key);
        end = text.find(text[quote], quote + 1) + 1;
        if (text.substr(key, text.find_first_of("= \t\r\n", key) - key) == "name")
            return text.replace(begin, end - begin, attribute);
    }
}

/// What leads back from an arrangement; nothing if it is not a possible one.
std::optional<Arrangement> BankFile::invert(const Arrangement& programs, std::string_view text) const
{
    if (programs.empty() || programs.size() > MAX_PROGRAMS || names.empty()) return std::nullopt;
    Arrangement back(names.size());
    for (std::size_t place = 0; place < programs.size(); ++place) {
        const ArrangedProgram& program = programs[place];
        if (program.number < 0) {
            if (!isProgram(program.element)) return std::nullopt;
            continue;
        }
        const auto number = static_cast<std::size_t>(program.number);
        if (!hasProgram(program.number) || back[number].number >= 0) return std::nullopt;
        back[number].number = static_cast<int>(place);
        if (program.name) back[number].name = names[number];
    }
    for (std::size_t number = 0; number < back.size(); ++number)
        if (back[number].number < 0) back[number] = cut(text, number);
    return back;
}

/// What stands between the lines of a program and those of the one before it; nothing before the first one.
TextSpan BankFile::gapBefore(std::string_view text, std::size_t number) const
{
    const std::size_t end = withItsLines(text, layout.elements[number]).begin;
    return {number == 0 ? end : withItsLines(text, layout.elements[number - 1]).end, end};
}

/// The text of a program with what stands before it.
ArrangedProgram BankFile::cut(std::string_view text, std::size_t number) const
{
    return {.before = std::string(gapBefore(text, number).of(text)),
            .element = std::string(withItsLines(text, layout.elements[number]).of(text))};
}

bool BankFile::create(const std::string& newPath, int number, std::string_view element)
{
    std::error_code none;
    if (number < 0 || number >= MAX_PROGRAMS || std::filesystem::exists(pathOf(newPath), none)) return false;
    path = newPath;
    isRead = false;
    if (parse(element).getTagName() != PROGRAM) return refuse("the program to be saved is not well-formed");
    std::string text = xmlOpenTag("Bank") + xmlCloseOpen() + "\n";
    for (int before = 0; before < number; ++before) text += emptyProgram();
    return write(text.append(element) + xmlEndTag("Bank") + "\n") && open(path);
}

bool BankFile::resize(int programs)
{
    if (programs <= 0 || programs > MAX_PROGRAMS)
        return refuse("not a valid size of a bank: " + std::to_string(programs));
    std::string text;
    if (!load(text)) return false;
    const auto size = static_cast<std::size_t>(programs);
    const std::string_view rootEnd = layout.rootEnd.of(text);
    const bool isEmpty = rootEnd == xmlCloseEmpty();
    const std::size_t end = size < names.size() ? withItsLines(text, layout.elements[size]).begin
                            : isEmpty           ? layout.rootEnd.begin
                                                : withItsLines(text, layout.rootEnd).begin;
    std::string newText = text.substr(0, end) + (isEmpty ? xmlCloseOpen() : "");
    newText += lineBreakBefore(newText, newText.size());
    for (std::size_t number = names.size(); number < size; ++number) newText += emptyProgram();
    newText += xmlEndTag(layout.rootName) + text.substr(layout.rootEnd.end);
    isRead = false;
    return write(newText);
}

bool BankFile::saveAs(const std::string& newPath)
{
    std::string text;
    if (!load(text)) return false;
    const std::string oldPath = std::exchange(path, newPath);
    const bool isWritten = write(text);
    if (!isWritten) path = oldPath;
    return isWritten;
}

bool BankFile::write(const std::string& text)
{
    if (text.size() > MAX_SIZE) return refuse("it would be too large");
    if (const auto error = WholeFile::replace(pathOf(path), text, WholeFile::Pace::gentle))
        return refuse("not written: " + error.message());
    stamp = stampOf(path);
    hash = hashOf(text);
    return true;
}

bool BankFile::refuse(std::string_view reason) const
{
    WindowsLib::DbgStream() << path << ": " << reason;
    return false;
}
}  // namespace Backend
