#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>
#include <set>

#include "backend/model/Edit.h"
#include "gui/framework/AccessibleControl.h"

namespace Gui
{
class OrvGuiIF;

namespace Forms
{
class RecordEditor;
}
}  // namespace Gui

namespace Gui::Joystick
{
/// The axes, or the buttons, of both joysticks as cells beside each other, each with its label and what it does. While
/// the settings of the screen are open, a click selects; otherwise it plays a button, as long as the mouse button is
/// held. The arrow keys go from cell to cell. The GUI thread.
class PartsCtl final : public QWidget, public AccessibleList
{
public:
    using Id = Backend::RecordId;
    enum class Press { down, repeat, up };

    struct Parts {
        int lines;  ///< of cells, for each joystick
        std::function<QString(Id id)> labelOf{};
        std::function<QString(Id id)> captionOf{};       ///< what it does, in a few letters; empty for nothing
        std::function<void(Id id, Press press)> play{};  ///< null for parts that a click selects
    };

    /// All must outlive it. The records are those of the editor, as many for each joystick.
    PartsCtl(OrvGuiIF& owner, Forms::RecordEditor& recordEditor, Parts shownParts, QWidget* parent);

    /// Whether the settings of the screen are open.
    void setEditing(bool on);
    /// A button is lit.
    void showDown(Id id, bool isDown);

    int getRowCount() const override;
    QString getRowName(int row) const override;
    QRect getRowPlace(int row) const override;
    bool isRowSelected(int row) const override;
    int getCurrentRow() const override;
    void selectRow(int row) override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    Id idOf(int row) const;
    int rowAt(const QPoint& point) const;
    int getColumns() const;
    void paintCell(QPainter& painter, int row) const;
    void showHelp(int row);
    void release();
    bool moveTo(int key, Qt::KeyboardModifiers modifiers);

    OrvGuiIF& gui;
    Forms::RecordEditor& editor;
    const Parts parts;
    bool isEditing = false;
    std::set<Id> down;
    std::optional<Id> pressed;  // by the mouse
    QTimer repeat;
    int helpedRow = -1;
};
}  // namespace Gui::Joystick
