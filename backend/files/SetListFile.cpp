#include "backend/files/SetListFile.h"

#include <cstdint>
#include <string_view>
#include <system_error>
#include <vector>

#include "backend/xml/XmlDocument.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace Backend
{
using WindowsLib::DbgStream;

namespace
{
constexpr std::string_view SET_FILE = ".set";
constexpr std::size_t LARGEST_SET_FILE = 16u << 20;  // bytes; an entry has some hundred

std::string pathBeside(const std::string& bank)
{
    std::filesystem::path path = pathOf(bank);
    if (path.extension() == SET_FILE)
        path += SET_FILE;  // not the bank itself
    else
        path.replace_extension(SET_FILE);
    return textOf(path);
}

std::error_code readSetFile(const std::string& path, std::string& text)
{
    std::vector<std::uint8_t> bytes;
    const auto error = WholeFile::read(pathOf(path), LARGEST_SET_FILE, bytes);
    text.assign(bytes.begin(), bytes.end());
    return error;
}
}  // namespace

SetListFile::SetListFile(const std::string& bankPath) : path(pathBeside(bankPath)) {}

SetList SetListFile::read()
{
    const MutexLock lock(mutex);
    SetList list;
    const auto error = readSetFile(path, known);
    if (error == std::errc::no_such_file_or_directory) return list;
    if (error || !list.readXml(XmlDocument(known, XmlDocument::Source::text).getRoot())) {
        DbgStream() << path << ": no set list, it is left as it is: " << (error ? error.message() : "not its XML");
        list = {};
        list.setBroken();
    }
    return list;
}

SetListWrite SetListFile::write(const SetList& list)
{
    const MutexLock lock(mutex);
    if (list.isBroken()) return SetListWrite::failed;
    std::string there;
    const auto absent = readSetFile(path, there);
    if (!absent && there != known) return SetListWrite::changed;
    const std::string text = list.toXml();
    if (absent ? list.getEntries().empty() : text == there) return SetListWrite::written;
    if (const auto error = WholeFile::replace(pathOf(path), text)) {
        DbgStream() << path << ": not written: " << error.message();
        return SetListWrite::failed;
    }
    known = text;
    return SetListWrite::written;
}
}  // namespace Backend
