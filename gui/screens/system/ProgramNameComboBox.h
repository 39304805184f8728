#pragma once

#include "gui/framework/ComboBox.h"

namespace Gui::System
{
/// The current program: a list of the bank's, and its name, which can be typed over. What is typed never plays. Enter,
/// or going elsewhere, renames; Escape, a blank name, the list or another program leaves the name as it was.
class ProgramNameComboBox final : public ComboBox
{
public:
    explicit ProgramNameComboBox(GuiContext& context, QWidget* parent = nullptr);

    /// The user typed another name.
    std::function<void(const QString& name)> onRename;
    /// The user has done with typing.
    std::function<void()> onLeave;

    /// The programs by their names in the bank. The current one stays as it is shown.
    void setProgramNames(const std::vector<std::string>& names);
    /// Without telling anyone. What is being typed stays, as long as it is for this program.
    void showProgram(int number, const QString& name);
    /// Back to the name it has, which is not always that of its entry in the bank.
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
