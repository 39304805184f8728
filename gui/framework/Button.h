#pragma once

#include <QAbstractButton>
#include <QRect>

namespace Gui
{
class GuiContext;

/// A push button that acts when it is pressed, not when it is released. A latching one stays down until the next press.
class Button : public QAbstractButton
{
public:
    class Listener
    {
    public:
        virtual ~Listener() = default;
        /// The user pressed the button; for a latching one `pressed` is its new state.
        virtual void buttonChanged(int id, bool pressed) = 0;
    };

    enum class Action { momentary, latching };

    /// The position of a button in a row, `x` logical pixels from the left.
    static constexpr QRect at(int x) { return {x, 6, 29, 20}; }

    Button(GuiContext& guiContext, int buttonId, const QString& label, const QRect& rectangle, QWidget* parent,
           Action action = Action::momentary);

    bool isPressed() const { return isCheckable() ? isChecked() : isDown(); }
    /// Does not notify the listener.
    void setPressed(bool pressed);
    /// It must outlive the button. Null for none.
    void setListener(Listener* newListener) { listener = newListener; }

    QSize sizeHint() const override { return at(0).size(); }

protected:
    virtual void mouseDown();
    void mouseUp();
    void notify();

    GuiContext& getContext() const { return context; }

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    GuiContext& context;
    int id;
    Listener* listener = nullptr;
};
}  // namespace Gui
