#pragma once

#include "gui/screens/setup/EditField.h"

class QBoxLayout;
class QPushButton;

namespace Gui::Setup
{
struct File;

/// A file: its path is typed, or chosen by a dialog. An empty path means the usual file.
class FileField : public EditField
{
public:
    /// Both must outlive it.
    FileField(OrvGuiIF& owner, const File& fileRow, QBoxLayout& page);

    QString findFault() const override;
    void post() const override;

protected:
    /// Beside the button of the dialog.
    QPushButton& addButton(const QString& label, const QString& name, const QString& help);
    /// Where the dialog starts while the line is empty.
    virtual QString getUsual() const { return {}; }

private:
    void choose();
    QString getKnown() const override;

    const File& row;
    QBoxLayout* buttons;
};
}  // namespace Gui::Setup
