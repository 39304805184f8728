#pragma once

#include <QWidget>
#include <cstddef>
#include <vector>

namespace Gui
{
/// A screen, or a part of one. Panels are stacked in a column, and each is shown and hidden by itself: those below it
/// move, and the panels around it grow or shrink. The Qt parent owns its panels. The GUI thread.
class Panel : public QWidget
{
public:
    static constexpr std::size_t MOST_CHILDREN = 200;
    static constexpr int GAP = 5;  ///< logical pixels between two visible panels

    /// Hidden until `show`. With a parent it is added at the bottom of its column.
    explicit Panel(Panel* parentPanel = nullptr);
    ~Panel() override;

    /// Ignored if it is in that state already.
    virtual void show(bool visible);
    /// Whether it was shown, even if a panel around it is hidden.
    bool isShown() const { return shown; }

    /// Sets the size of a panel without visible children. One with visible children takes the size of its column.
    void setPanelSize(QSize size);

    bool hasShownChild() const;

protected:
    /// The size of the whole column changed.
    virtual void columnResized(QSize) {}

private:
    void layOut();
    QSize placeChildren();

    Panel* parentPanel;
    std::vector<Panel*> childPanels;
    bool shown = false;
};
}  // namespace Gui
