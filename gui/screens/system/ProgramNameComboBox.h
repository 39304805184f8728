#pragma once

#include "gui/framework/ComboBox.h"

namespace Gui::System
{
/// The current program: the list of the bank's programs, and the name, which can be edited. Keys typed here are not
/// played. Enter or leaving the field renames; Escape, a blank name, a choice from the list or another program discards
/// the text.
class ProgramNameComboBox final : public ComboBox
{
public:
    explicit ProgramNameComboBox(GuiContext& context, QWidget* parent = nullptr);

    /// The user entered another name.
    std::function<void(const QString& name)> onRename;
    /// The user has finished typing.
    std::function<void()> onLeave;

    /// The names of the programs in the bank. The current program is still shown.
    void setProgramNames(const std::vector<std::string>& names);
    /// Calls no callback. A text that is being typed for this program stays.
    void showProgram(int number, const QString& name);
    /// Restores the name of the program, which may differ from that of its entry in the bank.
    void cancelTyping();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void rename();

    int programNumber = 0;  // from 0; it need not be in the list
    QString programName;
};
}  // namespace Gui::System
