#pragma once

#include <QScrollArea>

class QScrollBar;

namespace Gui
{
class GdiManager;
}

namespace Gui::Output
{
class BarList;

/// Where a list of bars scrolls, if it has more rows than are shown at once. The scroll bar lies at the right edge, so
/// that bars stay below their keys. The GUI thread.
class BarView final : public QScrollArea
{
public:
    /// `highest` is the height in logical pixels from which the list scrolls. Owns the list.
    BarView(const GdiManager& manager, BarList& bars, int highest, QWidget* parent);

    /// What it needs now, in logical pixels.
    int getLogicalHeight() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const GdiManager& gdi;
    BarList& list;
    const int most;
    QScrollBar* bar;
};
}  // namespace Gui::Output
