#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "api/Bank.h"
#include "backend/model/Program.h"
#include "platform/WindowHandle.h"

class QListWidget;
class QRadioButton;

namespace Gui
{
class EditBox;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::Files
{
/// Saves the current program under a name: into the current bank in place of one of its programs, into another bank in
/// place of the program of the same number, into a new bank, or as a file of its own. Replacing anything but an earlier
/// version of the same program has to be confirmed. Closes when the command is posted. The GUI thread.
class SaveDialog final : public QDialog
{
public:
    SaveDialog(OrvGuiIF& owner, QWidget& parent);

    void accept() override;

private:
    void addTargets();
    void addButtons();
    void showBank();
    QString refusal() const;
    bool isUpToDate() const;

    void saveToCurrentBank();
    void saveToAnotherBank();
    void askToReplaceIn(const std::string& path);
    void saveToProgram();
    void save(const std::string& target, int number, std::function<void(const WindowHandle& window)> post);

    OrvGuiIF& gui;
    Backend::Bank bank;  // as shown in the dialog
    Backend::Program program;
    EditBox* name;
    QRadioButton* currentBank;
    QRadioButton* anotherBank;
    QRadioButton* programFile;
    QListWidget* programs;
};
}  // namespace Gui::Files
