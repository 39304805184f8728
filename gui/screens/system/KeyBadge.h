#pragma once

#include <QWidget>

#include "gui/framework/AccessibleControl.h"
#include "gui/framework/KeyTarget.h"

namespace Gui
{
class GdiManager;
}

namespace Gui::System
{
/// Says where the keys of the computer go: KEYS PLAY, TYPING or ELSEWHERE.
class KeyBadge final : public QWidget, public AccessibleControl
{
public:
    KeyBadge(const GdiManager& manager, QWidget* parent) : QWidget(parent), gdi(manager) {}

    void show(KeyTarget newTarget);

    QAccessible::Role getAccessibleRole() const override { return QAccessible::Indicator; }
    QString getAccessibleValue() const override;
    bool isPressable() const override { return false; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const GdiManager& gdi;
    KeyTarget target = KeyTarget::elsewhere;
};
}  // namespace Gui::System
