#pragma once

#include <QTimer>
#include <QWidget>

namespace Gui
{
class GdiManager;
}

namespace Gui::System
{
/// A disc that lights up at each beat while the clock runs. It follows the clock that the host reports, goes on at the
/// same tempo until the next report, and stays dark before the first one. The GUI thread.
class BeatLight final : public QWidget
{
public:
    BeatLight(const GdiManager& manager, QWidget* parent);

    /// The clock is at this pulse, of 480 a beat, now; below 0 it does not run.
    void showClock(std::int32_t pulse, int beatsPerMinute);

protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void setLit(bool on);

    const GdiManager& gdi;
    QTimer beat;  // to the next beat
    QTimer dark;
    int beatTime = 0;  // milliseconds
    bool lit = false;
};
}  // namespace Gui::System
