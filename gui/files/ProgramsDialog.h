#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "backend/model/BankEdit.h"

class QBoxLayout;
class QLabel;

namespace Gui
{
class ErrorLine;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::Files
{
class BankList;

/// Arranges the programs of the current bank, and, with a second bank beside it, of that, too. Every change is written
/// at once and can be undone, each in the history of its bank. One change at a time: what the user wants while one is
/// being written is ignored. The keys do not play in it. The GUI thread.
class ProgramsDialog final : public QDialog
{
public:
    ProgramsDialog(OrvGuiIF& owner, QWidget& parent);

    /// The current bank or its program has changed.
    void follow();
    void handleBankEditDone(const Backend::BankEditDone& done);

private:
    struct Side {
        QLabel* title = nullptr;
        BankList* list = nullptr;
    };
    Side addSide(QBoxLayout& row, const QString& name);
    void addButtons(QBoxLayout& column);
    void addButton(QBoxLayout& column, const QString& label, const QString& help, std::function<void()> action);
    void show(const Side& side, const Backend::Bank& bank);
    void openOther();
    void edit(const Backend::BankEdit& edit, int first);
    void post(const Backend::BankEdit& edit, int first);

    OrvGuiIF& gui;
    Side current;
    Side other;  // hidden until a bank is opened in it
    BankList* active = nullptr;
    ErrorLine* error;
    int shownProgram = -1;
    bool isBusy = false;  // until the change is acknowledged
    std::string posting;  // the path of its bank, empty for the current one
    int firstChanged = 0;
    int changed = 0;
};
}  // namespace Gui::Files
