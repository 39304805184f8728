#pragma once

#include <QDialog>

#include "backend/model/SetList.h"

class QBoxLayout;
class QCheckBox;
class QListWidget;
class QPushButton;

namespace Gui
{
class EditBox;
class ErrorLine;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::System
{
class SetListView;

/// The set list of the bank: its entries beside the programs of the bank. The GUI thread.
class SetListDialog final : public QDialog
{
public:
    SetListDialog(OrvGuiIF& owner, const Backend::SetList& list, QWidget& parent);

    void showList(const Backend::SetList& list);
    /// The names of the programs have changed.
    void showPrograms();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makePrograms();
    QWidget* makeEntries();
    QPushButton* addButton(QBoxLayout& row, const QString& label, const QString& help, void (SetListDialog::*action)());
    void connectEntries();

    void find(const QString& text);
    void addChosen();
    void addCurrent();
    void add(std::vector<int> programs);
    void remove();
    void post(Backend::SetListEdit::Kind kind, std::vector<int> items, const QString& name, int before = 0,
              const QString& note = {});
    void undo();
    void redo();

    OrvGuiIF& gui;
    QCheckBox* on;
    EditBox* search;
    QListWidget* programs;
    SetListView* entries;
    ErrorLine* error;
};
}  // namespace Gui::System
