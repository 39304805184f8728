#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "backend/model/NoteActivity.h"
#include "gui/framework/AccessibleControl.h"
#include "gui/framework/GdiManager.h"
#include "gui/musickeyboard/KeyOutlines.h"

namespace Gui
{
class GuiContext;
}

namespace Gui::Output
{
/// Rows of bars below the music keyboard, each under the keys that it covers. One row is the current one: the arrow
/// keys move to another, and what keys and menus do is done to it. Reached by Tab, not by a click. The GUI thread.
class BarList : public QWidget, public AccessibleList
{
public:
    BarList(GuiContext& guiContext, QWidget* parent);

    using Notes = Backend::MidiEngine::NoteActivity::Notes;

    /// Called with the place of a row that should be scrolled to.
    std::function<void(const QRect& place)> onReveal;

    /// The scale has changed.
    void rescale();

    int getCurrentRow() const final { return current; }

    /// The notes that are lit in the row: an arrow comes to its bar from the key of each.
    Notes getLitNotes(int row) const;

protected:
    /// Below its last row, in logical pixels.
    virtual int getLogicalHeight() const = 0;
    /// Paints a row; `keys` and the painter have the scale of the list.
    virtual void paintRow(QPainter& painter, int row) = 0;
    /// A key that may change the current row. False leaves it to playing.
    virtual bool useKey(const QKeyEvent& event) = 0;
    virtual void showRowMenu(int row, const QPoint& globalPosition) = 0;
    /// Shown while there are no rows.
    virtual QString getEmptyText() const = 0;

    const KeyOutlines& getKeys() const { return keys; }
    const GdiManager& getGdi() const;

    /// The rows, or what they show, are others.
    void rowsChanged();
    /// Of each row; the rows that are missing have none.
    void setLitNotes(std::vector<Notes> notes);
    /// Without effects beyond this list; limited to the rows there are.
    void setCurrentRow(int row);

    struct Bar {
        QRect place;
        GdiManager::Role fill;
        QString text;   ///< in its middle
        QString end{};  ///< at its right end
        Notes lit{};
        int before = 0;  ///< the width of what is at its left
    };
    /// Texts for which the bar is too narrow are beside it.
    void paintBar(QPainter& painter, const Bar& bar) const;

    void paintEvent(QPaintEvent* event) final;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void moveTo(int row);
    QRect ringOf(const QRect& place) const;
    int middleOf(int note) const;
    void paintLines(QPainter& painter) const;
    void paintArrows(QPainter& painter, const Bar& bar) const;

    GuiContext& context;
    KeyOutlines keys;
    int current = -1;
    std::vector<Notes> lit;  // by row
};
}  // namespace Gui::Output
