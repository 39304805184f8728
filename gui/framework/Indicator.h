#pragma once

#include <QWidget>

#include "gui/framework/AccessibleControl.h"

namespace Gui
{
class GdiManager;

/// A painted control that only shows a state, which screen readers get as its value. It takes no clicks and no keys.
/// The GUI thread.
class Indicator : public QWidget, public AccessibleControl
{
public:
    QAccessible::Role getAccessibleRole() const override { return QAccessible::Indicator; }
    bool isPressable() const final { return false; }

protected:
    Indicator(const GdiManager& manager, QWidget* parent) : QWidget(parent), gdi(manager) {}

    /// Paints a new state, and notifies screen readers of it.
    void stateChanged()
    {
        update();
        accessibleValueChanged(*this, getAccessibleValue());
    }

    const GdiManager& gdi;
};
}  // namespace Gui
