#include "backend/sections/ProgramSection.h"

#include <sstream>

#include "backend/files/RegistrySettings.h"
#include "backend/messages/BackendThread.h"
#include "backend/xml/XmlDocument.h"
#include "platform/DbgStream.h"

namespace Backend
{
void ProgramSection::loadSection(const XmlElement& section)
{
    if (section.getTagName() == tag) readXml(section);
}

bool ProgramSection::keepsNotes() const { return orv.getRegistrySettings().get<Settings::KEEP_NOTES>(); }

XmlElement ProgramSection::readPreset(const std::string& name) const
{
    const std::string path = presets ? presets->findPreset(name) : "";
    if (path.empty()) return {};
    const XmlElement root = XmlDocument(path, XmlDocument::Source::file).getRoot();
    if (!root.hasElement() || root.getTagName() == tag) return root;
    WindowsLib::DbgStream() << path << ": holds " << root.getTagName() << " instead of " << tag << ", ignored";
    return {};
}

void ProgramSection::loadPreset(const std::string& name)
{
    if (const XmlElement root = readPreset(name); root.hasElement()) readXml(root);
}

void ProgramSection::writePreset(const std::string& name, const std::function<void(std::ostream& out)>& write)
{
    if (!presets) return;
    presets->save(name, [&](std::string& text) {
        std::ostringstream out;
        write(out);
        text += out.str();
    });
}

void ProgramSection::renamePreset(const std::string& name, const std::string& newName)
{
    if (presets) presets->rename(name, newName);
}

void ProgramSection::deletePreset(const std::string& name)
{
    if (presets) presets->remove(name);
}

bool ProgramSection::isOnBackendThread() const { return BackendThread::isCurrent(orv.getMessageManagerMaster()); }
}  // namespace Backend
