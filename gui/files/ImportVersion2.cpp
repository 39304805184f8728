// The import of files of version 2: the dialogs for the file and the new name, and the progress dialog.

#include <QCoreApplication>
#include <QFileInfo>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/model/PresetList.h"
#include "backend/model/PresetSections.h"
#include "gui/files/FileCommands.h"
#include "gui/framework/EditBoxDialog.h"
#include "gui/framework/FileDialog.h"
#include "gui/framework/FileNames.h"
#include "gui/framework/Operation.h"
#include "gui/framework/Question.h"

namespace Gui::Files
{
namespace PresetSections = Backend::PresetSections;

namespace
{
QString tr(const char* text) { return QCoreApplication::translate("ImportVersion2", text); }

QString failure(const std::string& source)
{
    return tr("\"%1\" could not be imported; nothing was written.").arg(shownFileName(source));
}

using PostImport = void (Backend::OrvMessageManager::*)(const std::string& source, const std::string& target,
                                                        const WindowHandle& window);

void importFile(OrvGuiIF& gui, QWidget& parent, const std::string& source, const QString& title, PostImport post,
                const QString& filter, const QString& extension)
{
    chooseFile(
        gui, parent,
        {.purpose = FileQuestion::Purpose::save,
         .title = tr("Select Name Of New File"),
         .filters = {filter},
         .extension = extension,
         .name = shownFileName(source)},
        [=, &gui, &parent](const std::string& target) {
            if (QFileInfo(QString::fromStdString(source)) == QFileInfo(QString::fromStdString(target)))
                return showMessage(parent, tr("Error"), tr("A file cannot be imported into itself."));
            run(parent,
                {.title = title,
                 .post = [=, &gui](const auto& window) { (gui.getOrvMessageManager().*post)(source, target, window); },
                 .done = [&gui, source] { gui.displayMessage("Imported " + shownFileName(source).toStdString()); },
                 .failure = failure(source)});
        });
}

QString refusePresetName(const QString& name)
{
    return name.isEmpty() ? tr("Entry cannot be blank") : refuseFileName(name);
}

/// The backend finds out which section the file belongs to, so a preset of that name in any section might be replaced.
EditBoxDialog::Doubt doubtPresetName(const OrvGuiIF& gui, const QString& name)
{
    for (const auto& section :
         {PresetSections::COMPUTER_INPUT, PresetSections::MIDI_INPUT, PresetSections::CONTROLS, PresetSections::LAYERS})
        if (gui.getPresetList(section).find(name.toStdString()) != nullptr)
            return {tr("Confirm Overwrite"), tr("Preset already exists. Overwrite?")};
    return {};
}

void importPreset(OrvGuiIF& gui, QWidget& parent, const std::string& source)
{
    auto* dialog = new EditBoxDialog(tr("Enter Preset Name"), tr("Preset Name:"), tr("default preset name"),
                                     EditBoxDialog::Blank::refused, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->refuse = &refusePresetName;
    dialog->doubt = [&gui](const QString& name) { return doubtPresetName(gui, name); };
    QObject::connect(dialog, &QDialog::accepted, &parent, [=, &gui, &parent] {
        run(parent, {.title = tr("Importing Preset..."),
                     .post =
                         [&gui, source, name = dialog->getText().toStdString()](const auto& window) {
                             gui.getOrvMessageManager().postImportVersion2Preset(source, name, window);
                         },
                     .done = [&gui, source] { gui.displayMessage("Imported " + shownFileName(source).toStdString()); },
                     .failure = failure(source)});
    });
    dialog->open();
}

void importVersion2(OrvGuiIF& gui, QWidget& parent, const std::string& source)
{
    using Backend::OrvMessageManager;
    const QString extension = QFileInfo(QString::fromStdString(source)).suffix().toLower();
    if (extension == "bnk")
        importFile(gui, parent, source, tr("Importing Bank..."), &OrvMessageManager::postImportVersion2Bank,
                   bankFilter(), extension);
    else if (extension == "prg")
        importFile(gui, parent, source, tr("Importing Program..."), &OrvMessageManager::postImportVersion2Program,
                   programFilter(), extension);
    else if (extension == "pst")
        importPreset(gui, parent, source);
}
}  // namespace

void importVersion2File(OrvGuiIF& gui, QWidget& parent)
{
    chooseFile(gui, parent,
               {.title = tr("Select Version 2 File To Import"),
                .filters = {tr("Version 2 Files (*.bnk *.prg *.pst)"), bankFilter(), programFilter(),
                            tr("Preset Files (*.pst)")}},
               [&gui, &parent](const std::string& source) { importVersion2(gui, parent, source); });
}
}  // namespace Gui::Files
