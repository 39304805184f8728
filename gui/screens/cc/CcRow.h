#pragma once

#include <QWidget>
#include <functional>
#include <optional>

class QPushButton;

namespace Gui
{
class ComboBox;
class Fader;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::Cc
{
/// A controller: its number and name in a list, a fader, the value that was sent last, and a button that removes the
/// row. The GUI thread.
class CcRow final : public QWidget
{
public:
    CcRow(OrvGuiIF& owner, QWidget* panel);

    std::function<void(int value)> onValue;  ///< 0 to 127
    std::function<void(int controller)> onController;
    std::function<void()> onRemove;

    /// 0 to 127.
    void showController(int newController);
    int getController() const { return controller; }
    /// The fader of an unknown value stands at 0, and the number is blank.
    void showValue(std::optional<int> newValue);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRect getNumberPlace() const;

    OrvGuiIF& gui;
    ComboBox* choices;
    Fader* fader;
    QPushButton* remove;
    int controller = -1;
    std::optional<int> value;
};
}  // namespace Gui::Cc
