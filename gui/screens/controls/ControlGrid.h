#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <optional>

#include "backend/values/SelectControlType.h"
#include "gui/framework/AccessibleControl.h"
#include "gui/screens/controls/ControlRecords.h"

namespace Gui
{
class OrvGuiIF;

namespace Forms
{
class RecordEditor;
}
}  // namespace Gui

namespace Gui::Controls
{
class ControlCell;
class ControlEdits;
class ValueEdit;

/// The grid of controls, as large as its used part. While the settings are closed they are played; while they are open
/// they are arranged: dragged to other cells, faders by their ends to another size. The arrow keys go from control to
/// control, with Alt they move the selected ones. The GUI thread.
class ControlGrid final : public QWidget, public AccessibleControl
{
public:
    using Id = ControlRecords::Id;
    static constexpr QSize CELL{58, 60};  ///< logical pixels; what plays a control has 40 at least

    /// All must outlive it.
    ControlGrid(OrvGuiIF& owner, ControlRecords& shownRecords, Forms::RecordEditor& recordEditor, ControlEdits& changes,
                QWidget* parent);

    /// The user sets the value of a control.
    std::function<void(Id id, int value)> onValue;
    /// A fader or knob is let go.
    std::function<void(Id id)> onRelease;

    /// The records, or those that are selected, have changed.
    void follow();
    void showValue(Id id);
    QSize getLogicalSize() const;
    /// In which the cursor can stand: that of a cell; the one that is selected; or the next one in a direction from
    /// that which has the cursor, or is selected. Null if there is none.
    ValueEdit* findEdit(const SelectControlType& select) const;

    QAccessible::Role getAccessibleRole() const override { return QAccessible::Grouping; }
    /// The control that keys start from.
    QString getAccessibleValue() const override;
    bool isPressable() const override { return false; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    enum class DragOf { place, size };
    struct Drag {
        DragOf what;
        Id id;
        Cell from;
        std::uint32_t gesture;
        bool selectsAlone;  // if it turns out to be a click
    };

    bool isEditing() const;
    void orderTabs();
    ControlCell& makeCell(const ControlRecords::Control& control);
    void markCells();
    bool press(Id id, Qt::KeyboardModifiers held);
    QRect placeOf(const Cell& cell, const QSize& span) const;
    Cell cellAt(const QPointF& point) const;
    bool isAtEnd(const ControlRecords::Control& control, const QPointF& point) const;
    std::optional<DragOf> dragAt(const QPointF& point) const;
    void showPointer(const QPointF& point);
    bool useArrow(const QKeyEvent& event);
    void goFrom(const Cell& cell, const Cell& step, Qt::KeyboardModifiers held);

    OrvGuiIF& gui;
    ControlRecords& records;
    Forms::RecordEditor& editor;
    ControlEdits& edits;
    std::map<Id, ControlCell*> cells;  // owned by Qt
    std::optional<Drag> drag;
    Cell dragged{0, 0};  // rows and columns from where it began
};
}  // namespace Gui::Controls
