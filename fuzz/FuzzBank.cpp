// Any file is a bank exactly if it is a document, with the same programs. A save into it changes the one program, and
// leaves every other with its bytes.
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "backend/files/BankFile.h"
#include "backend/xml/XmlDocument.h"
#include "fuzz/Fuzzing.h"

using namespace Backend;

namespace
{
const std::string SAVED = "<Program name=\"saved\">\n\t<Layers merge=\"false\">\n\t</Layers>\n</Program>\n";

/// In memory where there is such a folder: every save waits for the disk.
const std::string& path()
{
    static const std::string folder = std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : "/tmp";
    static const std::string file = folder + "/orvane-fuzz-" + std::to_string(::getpid()) + ".bnk";
    return file;
}

std::string readFile()
{
    std::ifstream file(path(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> namesIn(const std::string& text)
{
    std::vector<std::string> names;
    forEachElement(XmlDocument(text, XmlDocument::Source::text).getRoot(), [&](const XmlElement& child) {
        if (child.getTagName() == "Program") names.push_back(child.getAttribute("name"));
    });
    return names;
}

std::vector<std::string> programsIn(const std::string& text)
{
    std::vector<std::string> programs;
    if (const auto layout = scanElements(text, "Program"))
        for (const TextSpan& span : layout->elements) programs.emplace_back(span.of(text));
    return programs;
}

void checkSave(BankFile& bank, const std::string& text, int number)
{
    auto programs = programsIn(text);
    const auto index = static_cast<std::size_t>(number);
    const bool saved = bank.replaceProgram(number, SAVED);
    require(saved == (index < programs.size()));
    if (saved) programs[index] = SAVED.substr(0, SAVED.size() - 1);
    require(programsIn(readFile()) == programs);
    require(namesIn(readFile()) == bank.getProgramNames());
    BankFile anew;
    require(anew.open(path()) && anew.getProgramNames() == bank.getProgramNames());
    for (std::size_t i = 0; i < programs.size(); ++i)
        require(bank.readProgram(static_cast<int>(i)).getAttribute("name") == bank.getProgramNames()[i]);
}

void checkSize(BankFile& bank, int size)
{
    const auto before = programsIn(readFile());
    require(bank.resize(size) && bank.open(path()));
    const auto after = programsIn(readFile());
    require(static_cast<int>(after.size()) == size && bank.getProgramNames().size() == after.size());
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) require(before[i] == after[i]);
}
}  // namespace

void tryInput(std::string_view input)
{
    if (input.empty()) return;
    const std::string text(input.substr(1));
    std::ofstream(path(), std::ios::binary) << text;
    const bool isDocument = XmlDocument(text, XmlDocument::Source::text).getRoot().hasElement();
    BankFile bank;
    require(bank.open(path()) == isDocument);
    require(bank.getProgramNames() == namesIn(text));
    if (!isDocument) return;
    const auto choice = static_cast<unsigned char>(input[0]);
    checkSave(bank, text, choice % 4);
    checkSize(bank, 1 + choice / 4 % 4);
}
