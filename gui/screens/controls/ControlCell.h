#pragma once

#include <QWidget>
#include <functional>

#include "backend/model/Control.h"

class QLabel;

namespace Gui
{
class DragSlider;
class GuiContext;
}  // namespace Gui

namespace Gui::Controls
{
class ValueEdit;

/// A control on the screen: its caption, with the value of a fader or a knob, above what plays it. A label is its
/// caption alone. The GUI thread.
class ControlCell final : public QWidget
{
public:
    using Control = Backend::Controls::Control;

    /// The context must outlive it.
    ControlCell(GuiContext& owner, const Control& control, QWidget* grid);

    /// The user sets the value.
    std::function<void(int value)> onValue;
    /// A drag has ended.
    std::function<void()> onRelease;
    /// The mouse or a finger presses it; true if that does not play it.
    std::function<bool(Qt::KeyboardModifiers held)> onPress;
    /// A click on the caption.
    std::function<void(Qt::KeyboardModifiers held)> onCaption;
    /// Enter or Escape in an edit.
    std::function<void()> onLeave;

    /// Whether it can show a control of that type; another one needs another cell.
    bool fits(const Control& control) const { return shown.type == control.type; }
    /// Whether it shows the control already, but for the value.
    bool shows(const Control& control) const;
    /// All of it but the value.
    void showControl(const Control& control, const QString& help);
    /// A fader that is dragged shows it when the drag ends.
    void showValue(int newValue);

    struct Marks {
        bool selected = false;
        bool current = false;  ///< keys start from it
        bool edited = false;   ///< the grid takes the mouse

        bool operator==(const Marks&) const = default;
    };
    void setMarks(const Marks& newMarks);

    /// Null but for an edit.
    ValueEdit* getEdit() const { return edit; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void makeBody();
    void describeBody();
    QRect getCaptionPlace() const;
    void setByUser(int newValue);

    GuiContext& context;
    Control shown;
    int value = 0;
    Marks marks;
    DragSlider* slider = nullptr;  // what plays it, one of these at most; owned by Qt
    ValueEdit* edit = nullptr;
    QLabel* label = nullptr;
    QWidget* body = nullptr;
};
}  // namespace Gui::Controls
