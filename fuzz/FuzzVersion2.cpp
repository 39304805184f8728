// Whatever version 2 is said to have written, what is made of it can be read.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "api/OrvUtils.h"
#include "backend/files/version2/Version2Import.h"
#include "backend/xml/XmlDocument.h"

using namespace Backend;

namespace
{
void require(bool truth)
{
    if (!truth) std::abort();
}

XmlElement root(const std::string& text) { return XmlDocument(text, XmlDocument::Source::text).getRoot(); }
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    OrvUtils::setOrvAppDataDir("/nonexistent");
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    require(root(Version2::convertBank("fuzz", text)).getTagName() == "Bank");
    require(root(Version2::convertProgram("fuzz", text)).getTagName() == "ProgramFile");
    if (const auto preset = Version2::convertPreset("fuzz", text))
        require(root(preset->element).getTagName() == preset->section.rootElement);
    return 0;
}
