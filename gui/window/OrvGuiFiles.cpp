// Files and presets: their dialogs, and the changes that the backend makes to files.
#include <QFile>
#include <QXmlStreamReader>
#include <algorithm>
#include <utility>

#include "api/OrvMessageManager.h"
#include "backend/files/FileName.h"
#include "backend/model/Edit.h"
#include "backend/model/PresetSections.h"
#include "gui/files/FileCommands.h"
#include "gui/files/ProgramsDialog.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/FileNames.h"
#include "gui/framework/Question.h"
#include "gui/presets/PresetCtl.h"
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

void OrvGui::showProgramsDialog()
{
    if (shown.bank.programNames.empty() || open->main->hasDialog()) return;
    open->programs = new Files::ProgramsDialog(*this, *open->main);
    open->programs->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(open->programs, &QDialog::finished, open->main.get(), [this] { setFocus(); });
    open->programs->open();
}

namespace
{
/// The section whose preset a file has; null for none.
const PresetSection* sectionOfPreset(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return nullptr;
    QXmlStreamReader xml(&file);
    xml.readNextStartElement();
    const auto* const section = std::ranges::find_if(
        PresetSections::ALL, [&](const PresetSection& each) { return xml.name() == QLatin1String(each.rootElement); });
    while (!xml.atEnd()) xml.readNext();
    return xml.hasError() || section == PresetSections::ALL.end() ? nullptr : section;
}
}  // namespace

/// A step of undo, as loading a preset of the list is.
void OrvGui::loadPresetFile(const std::string& path)
{
    const QString name = shownFileName(path);
    const PresetSection* const section = sectionOfPreset(QString::fromStdString(path));
    if (section == nullptr) return displayMessage(QObject::tr("%1 has no preset").arg(name).toStdString());
    getEdits().post({.section = section->rootElement,
                     .name = QObject::tr("preset %1").arg(name).toStdString(),
                     .gesture = getEdits().beginGesture(),
                     .preset = path,
                     .isPresetFile = true});
    displayMessage(QObject::tr("Loaded %1").arg(name).toStdString());
}

void OrvGui::loadFile(const std::string& path)
{
    if (path.ends_with(".pst")) return loadPresetFile(path);
    const bool isProgram = path.ends_with(".prg");
    askBeforeLoss(isProgram ? Loss::ofProgram : Loss::ofAll, [this, path, isProgram] {
        loading = path;
        if (isProgram)
            getOrvMessageManager().postLoadProgram(path);
        else
            getOrvMessageManager().postLoadBank(path);
    });
}

void OrvGui::askBeforeLoss(Loss loss, std::function<void()> goOn)
{
    const int setting = shown.settings.get<Settings::ASK_BEFORE_LOSS>();
    const int programs = (isEdited ? 1 : 0) + (loss == Loss::ofAll ? otherEdited : 0);
    if (!open || programs == 0 || setting == static_cast<int>(BeforeLoss::never)) return goOn();
    const QString text = programs > 1 || !isEdited
                             ? QObject::tr("Edited programs that are not saved: %1. Lose their changes?").arg(programs)
                             : QObject::tr("\"%1\" was edited and is not saved. Lose its changes?")
                                   .arg(QString::fromStdString(shown.program.name));
    ask(open->getDialogParent(), QObject::tr("Changes that are not saved"), text, std::move(goOn));
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
    const PresetSection& changed = PresetSections::ALL[section];
    const auto rows = Preset::PresetCtl::findAll(*open->main, changed);
    for (auto* row : rows) row->setPresets(presets, done);
    if (rows.empty()) showPresetResult(changed.folder, done);
}

void OrvGui::handleSectionPreset(std::size_t section, bool edited, const std::string& name)
{
    if (section >= presetLists.size()) return;
    for (auto* row : Preset::PresetCtl::findAll(*open->main, PresetSections::ALL[section])) {
        row->showCurrent(name);
        row->showEdited(edited);
    }
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

void OrvGui::renameSequencePreset(const std::string& name, const std::string& newName)
{
    if (!isValidFileName(newName) || name == newName) return;
    if (sequencePresets.exists(newName)) deleteSequencePreset(newName);
    getOrvMessageManager().postRenameSequencePreset(name, newName);
}

void OrvGui::handleSequencePresetsChanged(bool done)
{
    sequencePresets.load();
    open->getScreens().handleSequencePresets();
    showPresetResult("Sequences", done);
}
}  // namespace Gui
