// Files and presets: their dialogs, and the changes that the backend makes to files.
#include "api/OrvMessageManager.h"
#include "backend/files/FileName.h"
#include "gui/files/FileCommands.h"
#include "gui/framework/Question.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"
#include "gui/window/OpenWindow.h"
#include "gui/window/OrvGui.h"

namespace Gui
{
using namespace Backend;

void OrvGui::showSaveDialog()
{
    if (!open->main->hasDialog()) Files::showSaveDialog(*this, *open->main);
}

void OrvGui::showLoadDialog()
{
    if (!open->main->hasDialog()) Files::showLoadDialog(*this, *open->main);
}

void OrvGui::importVersion2File()
{
    if (!open->main->hasDialog()) Files::importVersion2File(*this, *open->main);
}

void OrvGui::loadFile(const std::string& path)
{
    loading = path;
    if (path.ends_with(".prg"))
        getOrvMessageManager().postLoadProgram(path);
    else
        getOrvMessageManager().postLoadBank(path);
}

// --- presets

void OrvGui::showPresetResult(const char* folder, bool done) const
{
    if (!done)
        showMessage(open->getDialogParent(), QObject::tr("Error"),
                    QObject::tr("The folder \"%1\" could not be changed.").arg(folder));
}

void OrvGui::handlePresetsChanged(std::size_t section, const PresetList& presets, bool done)
{
    if (section >= presetLists.size()) return;
    presetLists[section] = presets;
    if (section == PresetSections::indexOf(PresetSections::COMPUTER_INPUT))
        open->main->getComputerInputPanel().handlePresetsChanged(presets);
    showPresetResult(PresetSections::ALL[section].folder, done);
}

const PresetList& OrvGui::getPresetList(const PresetSection& section) const
{
    return presetLists[PresetSections::indexOf(section)];
}

bool OrvGui::addSequencePreset(const std::string& name, const std::string& text)
{
    if (!isValidFileName(name)) return false;
    getOrvMessageManager().postAddSequencePreset(name, text);
    return true;
}

bool OrvGui::editSequencePreset(const std::string& name, const std::string& text)
{
    return sequencePresets.exists(name) && addSequencePreset(name, text);
}

void OrvGui::deleteSequencePreset(const std::string& name) { getOrvMessageManager().postDeleteSequencePreset(name); }

void OrvGui::handleSequencePresetsChanged(bool done)
{
    sequencePresets.load();
    showPresetResult("Sequences", done);
}
}  // namespace Gui
