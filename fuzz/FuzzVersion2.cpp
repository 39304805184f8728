// Whatever version 2 is said to have written, what is made of it can be read.
#include "api/OrvUtils.h"
#include "backend/files/version2/Version2Import.h"
#include "backend/xml/XmlDocument.h"
#include "fuzz/Fuzzing.h"

using namespace Backend;

namespace
{
XmlElement root(const std::string& text) { return XmlDocument(text, XmlDocument::Source::text).getRoot(); }
}  // namespace

void tryInput(std::string_view text)
{
    OrvUtils::setOrvAppDataDir("/nonexistent");
    require(root(Version2::convertBank("fuzz", text)).getTagName() == "Bank");
    require(root(Version2::convertProgram("fuzz", text)).getTagName() == "ProgramFile");
    if (const auto preset = Version2::convertPreset("fuzz", text))
        require(root(preset->element).getTagName() == preset->section.rootElement);
}
