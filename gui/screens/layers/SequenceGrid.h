#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "backend/model/SequenceSetting.h"
#include "gui/framework/AccessibleControl.h"
#include "gui/framework/Wheel.h"

namespace Gui
{
class GdiManager;
class GuiContext;
}  // namespace Gui

namespace Gui::Layers
{
/// The steps of a sequence as columns with a cell for each half-tone of two octaves, and their velocities beneath. A
/// click on a cell sets its note or takes it away, a drag does so in every step that it passes; a step without a note
/// is a rest. The column behind the last step adds one. Lengths, which are not played, stay as they are. The GUI
/// thread.
class SequenceGrid final : public QWidget, public AccessibleList
{
public:
    using Nodes = std::vector<Backend::SequenceManagement::SequenceNode>;

    /// `owner` must outlive it.
    explicit SequenceGrid(GuiContext& owner, QWidget* parent = nullptr);

    enum class Gesture { begins, continues };
    /// The user has made this of the steps; a drag, or a key that is held, continues one gesture.
    std::function<void(const Nodes& changed, Gesture gesture)> onChange;
    /// Called with the place of a step that should be scrolled to.
    std::function<void(const QRect& place)> onReveal;

    void setNodes(const Nodes& shown);
    /// -1 for none.
    void setPlayingStep(int step);
    int getPlayingStep() const { return playing; }
    /// The scale has changed.
    void rescale();
    /// In logical pixels, the room of a scroll bar included.
    static int getLogicalHeight();

    /// Where a half-tone of a step is.
    QRect cellOf(int step, int note) const;

    // What is done to the current step

    /// A rest before it; at the end if it is the column behind the last step.
    void insertStep();
    void removeStep();
    void makeRest();
    void showMenu(const QPoint& globalPosition);

    int getRowCount() const override { return static_cast<int>(nodes.size()); }
    /// "Step 2: 0, 7", for the current one with the half-tone that the keys change: "Step 2: 0, 7; at +12".
    QString getRowName(int row) const override;
    QRect getRowPlace(int row) const override;
    bool isRowSelected(int row) const override { return row == current; }
    int getCurrentRow() const override { return current; }
    void selectRow(int row) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    enum class Part { number, notes, velocity };
    struct Drag {
        Part part;
        bool erases;
        Nodes before;
        std::map<int, int> passed;  // the half-tone or the velocity, by step
        Gesture next = Gesture::begins;
    };

    const GdiManager& getGdi() const;
    int columnWidth() const;
    QRect laneOf(int step) const;
    int stepAt(int x) const;
    int noteAt(int y) const;
    int velocityAt(int y) const;
    Part partAt(int y) const;

    void setCurrent(int step, int note);
    void showNote(int note);
    bool useKey(const QKeyEvent& event);
    void changeVelocity(int by, Gesture gesture);
    void dragTo(const QPoint& point);
    void change(Nodes changed, Gesture gesture);
    void paintStep(QPainter& painter, int step) const;

    GuiContext& context;
    Nodes nodes;
    int playing = -1;
    int current = 0;  // the number of steps is the column behind the last
    int currentNote = 0;
    int lowest = -12;  // the lowest half-tone that is shown
    std::optional<Drag> drag;
    Wheel wheel;
};
}  // namespace Gui::Layers
