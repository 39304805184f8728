#include "backend/persistence/Bank.h"

#include "backend/persistence/XmlDocument.h"

namespace Backend
{
Bank Bank::fromFile(const std::string& path)
{
    Bank bank;
    bank.name = path;
    if (path.empty()) return bank;
    forEachElement(XmlDocument(path, XmlDocument::Source::file).getRoot(), [&](const XmlElement& child) {
        if (child.getTagName() == "Program") bank.programNames.push_back(child.getAttribute("name"));
    });
    return bank;
}
}  // namespace Backend
