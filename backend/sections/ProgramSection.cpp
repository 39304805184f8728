#include "backend/sections/ProgramSection.h"

#include <sstream>

#include "backend/files/RegistrySettings.h"
#include "backend/messages/BackendThread.h"
#include "backend/xml/Text.h"
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
    return readPresetFile(presets ? presets->findPreset(name) : "");
}

XmlElement ProgramSection::readPresetFile(const std::string& path) const
{
    if (path.empty()) return {};
    const XmlElement root = XmlDocument(path, XmlDocument::Source::file).getRoot();
    if (!root.hasElement() || root.getTagName() == tag) return root;
    WindowsLib::DbgStream() << path << ": holds " << root.getTagName() << " instead of " << tag << ", ignored";
    return {};
}

bool ProgramSection::loadPreset(const std::string& name)
{
    const XmlElement root = readPreset(name);
    if (root.hasElement()) readXml(root);
    return root.hasElement();
}

bool ProgramSection::loadPresetFile(const std::string& path)
{
    const XmlElement root = readPresetFile(path);
    loadSection(root);
    return root.hasElement();
}

void ProgramSection::writePreset(const std::string& name, const std::function<void(std::ostream& out)>& write)
{
    if (!presets) return;
    const bool isSaved = presets->save(name, [&](std::string& text) {
        std::ostringstream out;
        write(out);
        text += out.str();
    });
    const PresetEntry* const entry = isSaved ? presets->getList().find(Text::trim(name)) : nullptr;
    if (entry != nullptr && !entry->merge && onSaved) onSaved(entry->name);
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
