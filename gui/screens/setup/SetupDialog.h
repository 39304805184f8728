#pragma once

#include <QDialog>
#include <QStringList>

class QBoxLayout;
class QLabel;

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Setup
{
class SettingField;
class SetupPages;

/// The setup dialog. OK posts the changed settings if all are valid; Cancel posts nothing. While it is open, fields
/// that the user has not changed show what the backend reports. Keys typed in it are not played. The GUI thread.
class SetupDialog final : public QDialog
{
public:
    SetupDialog(OrvGuiIF& owner, QWidget& parent);

    /// The window has got new values from the backend.
    void follow();

    void accept() override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QBoxLayout* makeButtons();
    void makeHelp();

    bool refuses();
    void refuse(const SettingField& field, const QString& text);
    QStringList findQuestions() const;
    void askAll(QStringList questions);
    void apply();

    OrvGuiIF& gui;
    SetupPages* pages;  // owned by their Qt parents
    QLabel* help;
};
}  // namespace Gui::Setup
