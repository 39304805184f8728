#pragma once

#include <QWidget>
#include <cstddef>
#include <vector>

namespace Gui
{
/// A screen, or a part of one: panels stack in one column. Each is shown and hidden by itself; those below it move, and
/// the panels around it grow and shrink, up to the top. Panels own nothing of each other but what Qt's parents own. The
/// GUI thread.
class Panel : public QWidget
{
public:
    static constexpr std::size_t MOST_CHILDREN = 200;
    static constexpr int GAP = 5;  ///< logical pixels between two visible panels

    /// Stays hidden until `show`. With a parent it joins its column at the bottom.
    explicit Panel(Panel* parentPanel = nullptr);
    ~Panel() override;

    /// Nothing happens if it is as it should be already.
    virtual void show(bool visible);
    /// Whether it was shown, even if a panel around it is hidden.
    bool isShown() const { return shown; }

    /// The size of a panel without a column of its own. One with visible children follows them.
    void setPanelSize(QSize size);

    const std::vector<Panel*>& getChildPanels() const { return childPanels; }
    bool hasShownChild() const;

protected:
    /// What a panel around a column leaves at its edges.
    void setMargins(const QMargins& newMargins);
    /// The size of the whole column changed.
    virtual void columnResized(QSize) {}

private:
    void layOut();
    QSize placeChildren();

    Panel* parentPanel;
    std::vector<Panel*> childPanels;
    QMargins margins;
    bool shown = false;
};
}  // namespace Gui
