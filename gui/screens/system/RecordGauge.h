#pragma once

#include "gui/framework/Indicator.h"

namespace Gui::System
{
/// Shows how full the record is: a light that is on while it records, a bar, and the percentage in it.
class RecordGauge final : public Indicator
{
public:
    RecordGauge(const GdiManager& manager, QWidget* parent) : Indicator(manager, parent) {}

    /// 0 to 100 percent.
    void showFill(int percent);
    void showRecording(bool on);

    QAccessible::Role getAccessibleRole() const override { return QAccessible::ProgressBar; }
    QString getAccessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int fill = 0;
    bool isRecording = false;
};
}  // namespace Gui::System
