#include "backend/xml/XmlDocument.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <pugixml.hpp>

#include "backend/xml/XmlParser.h"
#include "platform/DbgStream.h"

namespace
{
/// Reads the file, up to one byte more than is allowed; nothing if there is no such file.
std::optional<std::string> readFile(std::string_view path)
{
    const std::filesystem::path file(std::u8string(path.begin(), path.end()));
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return std::nullopt;

    std::ifstream in(file, std::ios::binary);
    const auto size = std::min<std::uintmax_t>(std::filesystem::file_size(file, error), XmlDocument::MAX_SIZE + 1);
    std::string text(static_cast<std::size_t>(size), '\0');
    if (error || !in.read(text.data(), static_cast<std::streamsize>(text.size()))) return std::nullopt;
    return text;
}

void report(std::string_view name, std::string_view text, const XmlProblem& problem)
{
    const auto line = 1 + std::ranges::count(text.substr(0, problem.offset), '\n');
    WindowsLib::DbgStream() << name << ", line " << line << " (byte " << problem.offset
                            << "): not read: " << problem.reason;
}

std::shared_ptr<const pugi::xml_document> parse(std::string_view name, std::string_view text)
{
    auto document = std::make_shared<pugi::xml_document>();
    const auto problem = parseXml(text, *document);
    if (!problem) return document;
    report(name, text, *problem);
    return nullptr;
}
}  // namespace

XmlDocument::XmlDocument(std::string_view textOrPath, Source source)
{
    if (source == Source::text)
        document = parse("XML text", textOrPath);
    else if (const auto text = readFile(textOrPath))
        document = parse(textOrPath, *text);
    else
        WindowsLib::DbgStream() << textOrPath << ": not read: no file that can be read";
}

XmlElement XmlDocument::getRoot() const { return document ? XmlElement(document) : XmlElement(); }
