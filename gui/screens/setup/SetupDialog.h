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

/// The dialog of the settings. OK posts what was changed, unless something of it cannot be; Cancel posts nothing. While
/// it is open it follows what the window is told, where the user has changed nothing. What is typed in it never plays.
/// The GUI thread.
class SetupDialog final : public QDialog
{
public:
    SetupDialog(OrvGuiIF& owner, QWidget& parent);

    /// The window was told something.
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
    SetupPages* pages;  // these belong to the dialog, as Qt has it
    QLabel* help;
};
}  // namespace Gui::Setup
