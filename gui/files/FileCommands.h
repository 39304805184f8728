#pragma once

#include <QString>
#include <functional>
#include <string>

class QWidget;

namespace Gui
{
class OrvGuiIF;
struct FileQuestion;
}  // namespace Gui

/// The commands of the user on banks and files. Each opens its dialogs, returns at once, and
/// posts commands to the backend. The GUI thread, while the window is open; `parent` is a control of it.
namespace Gui::Files
{
void showLoadDialog(OrvGuiIF& gui, QWidget& parent);
void showSaveDialog(OrvGuiIF& gui, QWidget& parent);
void showBankSizeDialog(OrvGuiIF& gui, QWidget& parent);
/// Writes an empty bank under a new name and loads it.
void makeNewBank(OrvGuiIF& gui, QWidget& parent);
/// Writes the current bank under another name, which is the current one then; then `done` is called.
void saveBankAs(OrvGuiIF& gui, QWidget& parent, std::function<void()> done = {});
void importVersion2File(OrvGuiIF& gui, QWidget& parent);
/// Makes the current bank the one that is loaded at the start.
void makeDefaultBank(OrvGuiIF& gui, QWidget& parent);

// For these and their dialogs
/// As `showFileDialog`, in the folder of the last file that was chosen, at first in that of the banks.
void chooseFile(OrvGuiIF& gui, QWidget& parent, FileQuestion question,
                std::function<void(const std::string& path)> chosen);
/// Before the bank at that path is changed: calls `goOn`, at once unless its file is as it was installed. Then the user
/// may want a bank of their own instead, which is the current one when `goOn` is called, or nothing.
void askBeforeFactoryBank(OrvGuiIF& gui, QWidget& parent, const std::string& path, std::function<void()> goOn);
QString bankFilter();
QString programFilter();
}  // namespace Gui::Files
