#pragma once

#include <QString>

class QWidget;

namespace Gui
{
class OrvGuiIF;
}

/// The commands of the user on banks and files. Each opens its dialogs, returns at once, and
/// posts commands to the backend. The GUI thread, while the window is open; `parent` is a control of it.
namespace Gui::Files
{
void showLoadDialog(OrvGuiIF& gui, QWidget& parent);
void showSaveDialog(OrvGuiIF& gui, QWidget& parent);
void showBankSizeDialog(OrvGuiIF& gui, QWidget& parent);
void importVersion2File(OrvGuiIF& gui, QWidget& parent);
/// Makes the current bank the one that is loaded at the start.
void makeDefaultBank(OrvGuiIF& gui, QWidget& parent);

// For these and their dialogs
QString getBanksFolder();  ///< It is made if it is not there.
QString bankFilter();
QString programFilter();
}  // namespace Gui::Files
