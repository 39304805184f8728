#pragma once

#include <QWidget>
#include <cstdint>

#include "backend/values/TimeIntervalType.h"
#include "gui/framework/AccessibleControl.h"
#include "gui/framework/Button.h"
#include "gui/framework/MouseCapture.h"
#include "gui/framework/Wheel.h"

namespace Gui
{
/// A length in pulses, shown as a note length or as a number; the label beside it switches between the two. Dragging
/// and the wheel change it by one named length, or by one pulse. A click opens the menu of the note lengths, or an edit
/// for the number. The GUI thread.
class TimeIntervalCtl : public QWidget, public AccessibleControl, private Button::Listener
{
public:
    /// Notified of what the user changes.
    class Listener
    {
    public:
        virtual ~Listener() = default;
        virtual void valueChanged(TimeIntervalCtl& control, std::int32_t ppq) = 0;
        virtual void kindChanged(TimeIntervalCtl& control, TimeIntervalType kind, std::int32_t ppq) = 0;
    };

    enum class LabelSide { left, right };

    /// Lengths from `lowest` to `highest` pulses; starts at the quarter note, or the nearest length to it.
    TimeIntervalCtl(GuiContext& guiContext, std::int32_t lowest, std::int32_t highest, QWidget* parent = nullptr);

    /// It must outlive the control; null for none.
    void setListener(Listener* newListener) { listener = newListener; }

    TimeIntervalType getKind() const { return kind; }
    std::int32_t getValue() const { return value; }
    /// These setters do not notify the listener. The value is clamped to the limits.
    void setKind(TimeIntervalType newKind);
    void setValue(std::int32_t ppq);
    void setLimits(std::int32_t lowest, std::int32_t highest);

    /// `width` in logical pixels.
    void setLabel(LabelSide side, int width);
    /// The label that switches between the two kinds, to set its accessible name and help.
    Button& getLabel() { return label; }

    QString getText() const;

    QAccessible::Role getAccessibleRole() const override { return QAccessible::SpinBox; }
    QString getAccessibleValue() const override { return getText(); }
    void pressAccessible() override { click(); }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buttonChanged(int id, bool pressed) override;

    bool showsNotes() const { return kind.kind == TimeIntervalType::Kind::noteInterval; }
    QRect valueArea() const;
    void placeLabel();
    std::int32_t stepped(std::int32_t from, int steps) const;
    void changeValue(std::int32_t ppq);
    void click();
    void openMenu();
    void openEdit();

    GuiContext& context;
    TimeIntervalType kind;
    std::int32_t value;
    std::int32_t minimum;
    std::int32_t maximum;
    Listener* listener = nullptr;
    Button label;
    LabelSide labelSide = LabelSide::left;
    int labelWidth;
    MouseCapture capture;
    Qt::MouseButton captureButton = Qt::NoButton;
    Wheel wheel;
};
}  // namespace Gui
