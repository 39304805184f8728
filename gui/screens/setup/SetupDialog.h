#pragma once

#include <QDialog>
#include <memory>
#include <vector>

class QBoxLayout;
class QLabel;
class QListWidget;
class QStackedWidget;

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Setup
{
class PortListField;
class SettingField;

/// Every setting that is the user's, on a few pages. OK posts what was changed, unless something of it cannot be;
/// Cancel posts nothing. While it is open it follows what the window is told, where the user has changed nothing. What
/// is typed in it never plays. The GUI thread.
class SetupDialog final : public QDialog
{
public:
    SetupDialog(OrvGuiIF& owner, QWidget& parent);
    ~SetupDialog() override;

    /// The window was told something.
    void follow();

    void accept() override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Page {
        QString title;
        QString help;
    };

    void makePages();
    void makeHelp();
    QBoxLayout* makeButtons();
    QBoxLayout& addPage(const Page& page);
    template <class Field, class... Arguments>
    Field& add(Arguments&&... arguments);

    bool refuses();
    void refuse(const SettingField& field, const QString& text);
    bool asks();
    void apply();

    OrvGuiIF& gui;
    QListWidget* titles;  // these belong to the dialog, as Qt has it
    QStackedWidget* pages;
    QLabel* help;
    std::vector<std::unique_ptr<SettingField>> fields;
    PortListField* inputs = nullptr;
    PortListField* outputs = nullptr;
};
}  // namespace Gui::Setup
