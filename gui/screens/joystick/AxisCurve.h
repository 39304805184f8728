#pragma once

#include <QWidget>
#include <optional>

#include "backend/model/AxisFunction.h"
#include "gui/framework/AccessibleControl.h"

namespace Gui
{
class GuiContext;
}

namespace Gui::Joystick
{
/// A picture of what an axis sends from one end of a joystick's travel to the other: its limits and its offset. The GUI
/// thread.
class AxisCurve final : public QWidget, public AccessibleControl
{
public:
    /// `owner` must outlive it.
    explicit AxisCurve(GuiContext& owner, QWidget* parent = nullptr);

    /// Without an event it is empty.
    void show(const Backend::Joystick::AxisFunction& shown);

    QAccessible::Role getAccessibleRole() const override { return QAccessible::Graphic; }
    /// What is sent at both ends, in the middle, and between: "0 at one end, 32 at a quarter ...".
    QString getAccessibleValue() const override;
    bool isPressable() const override { return false; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    GuiContext& context;
    std::optional<Backend::Joystick::AxisFunction> function;
};
}  // namespace Gui::Joystick
