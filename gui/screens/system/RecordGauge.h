#pragma once

#include <QWidget>

#include "gui/framework/AccessibleControl.h"

namespace Gui
{
class GdiManager;
}

namespace Gui::System
{
/// Shows how full the record is: a light that is on while it records, a bar, and the percentage in it.
class RecordGauge final : public QWidget, public AccessibleControl
{
public:
    RecordGauge(const GdiManager& manager, QWidget* parent);

    /// 0 to 100 percent.
    void showFill(int percent);
    void showRecording(bool on);

    QAccessible::Role getAccessibleRole() const override { return QAccessible::ProgressBar; }
    QString getAccessibleValue() const override;
    bool isPressable() const override { return false; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const GdiManager& gdi;
    int fill = 0;
    bool isRecording = false;
};
}  // namespace Gui::System
