#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "backend/files/Bank.h"
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
/// Saves the current program, under a name, into the current bank in place of one of its programs, into another bank in
/// place of the one of its number, or as a file of its own. It asks before anything is replaced but the program that it
/// is itself, and closes when the backend has been asked to save. The GUI thread.
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
    void save(const std::string& target, std::function<void(const WindowHandle& window)> post);

    OrvGuiIF& gui;
    Backend::Bank bank;  // what is shown
    Backend::Program program;
    EditBox* name;
    QRadioButton* currentBank;
    QRadioButton* anotherBank;
    QRadioButton* programFile;
    QListWidget* programs;
};
}  // namespace Gui::Files
