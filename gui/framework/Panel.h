#pragma once

#include <QPointer>
#include <QWidget>
#include <cstddef>
#include <utility>
#include <vector>

namespace Gui
{
class GdiManager;

/// A screen, or a part of one. Panels are stacked in a column, and each is shown and hidden by itself: those below it
/// move, and the panels around it grow or shrink. Sizes and places are given in logical pixels of 100 percent and
/// follow the scale. The Qt parent owns its panels. The GUI thread.
class Panel : public QWidget
{
public:
    static constexpr std::size_t MOST_CHILDREN = 200;
    static constexpr int GAP = 5;  ///< logical pixels between two visible panels

    /// A column. The manager, which has the scale, must outlive it.
    explicit Panel(const GdiManager& manager);
    /// Hidden until `show`. Added at the bottom of its parent's column.
    explicit Panel(Panel* parentPanel);
    ~Panel() override;

    /// Takes the place above another panel of the column, also in the order in which Tab visits them.
    void moveAbove(Panel& other);

    /// Ignored if it is in that state already.
    virtual void show(bool visible);
    /// Whether it was shown, even if a panel around it is hidden.
    bool isShown() const { return shown; }

    /// Sets the size of a panel without visible children. One with visible children takes the size of its column.
    void setPanelSize(QSize size);

    bool hasShownChild() const;

    /// Places everything again after a change of the scale, also in the panels inside.
    void rescale();

protected:
    /// The size of the whole column changed.
    virtual void columnResized(QSize) {}
    /// The scale has changed. What was placed by `place` follows without it.
    virtual void scaleChanged() {}

    /// Places a control of this panel.
    void place(QWidget& control, const QRect& rectangle);

    const GdiManager& getGdi() const { return gdi; }

private:
    void layOut();
    QSize placeChildren();
    void takeSize(QSize pixels);

    const GdiManager& gdi;
    Panel* parentPanel = nullptr;
    std::vector<Panel*> childPanels;
    std::vector<std::pair<QPointer<QWidget>, QRect>> placed;
    QSize ownSize{0, 0};  // in logical pixels
    bool shown = false;
};
}  // namespace Gui
