#pragma once

#include <QString>

class QWidget;

namespace Gui
{
class OrvGuiIF;
}

/// What the user does with banks and files. Each asks what it has to ask, in dialogs that open and return at once, and
/// posts the rest to the backend. The GUI thread, while the window is open; `parent` is a control of it.
namespace Gui::Files
{
void showLoadDialog(OrvGuiIF& gui, QWidget& parent);
void showSaveDialog(OrvGuiIF& gui, QWidget& parent);
void showBankSizeDialog(OrvGuiIF& gui, QWidget& parent);
void importVersion2File(OrvGuiIF& gui, QWidget& parent);
/// The current bank is the one for the start from now on.
void makeDefaultBank(OrvGuiIF& gui, QWidget& parent);

// For these and their dialogs
QString getBanksFolder();
QString bankFilter();
QString programFilter();
}  // namespace Gui::Files
