#pragma once

#include <QAbstractButton>
#include <functional>

#include "gui/framework/AccessibleControl.h"

class QPainter;

namespace Gui
{
class GdiManager;
}

namespace Gui::System
{
/// The current program, to be read from two metres away: its number, its name and, below it, the next program of the
/// bank or of the set list. A click opens the list of programs; a right click opens a menu.
class ProgramButton final : public QAbstractButton, public AccessibleControl
{
public:
    ProgramButton(const GdiManager& manager, QWidget* parent);

    std::function<void(const QPoint& globalPosition)> onMenu;

    /// `number` counts from 0. `line` stands below the name.
    void showProgram(int number, const QString& programName, const QString& line);
    /// Before `showProgram`: the user's note, and what comes next in the set list, at the left of that line; empty for
    /// none.
    void showSetEntry(const QString& noteText, const QString& nextText);

    QAccessible::Role getAccessibleRole() const override { return QAccessible::ButtonMenu; }
    QString getAccessibleValue() const override;
    void pressAccessible() override { click(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void paintLine(QPainter& painter, QRect line) const;

    const GdiManager& gdi;
    int number = 0;
    QString name;
    QString below;
    QString note;
    QString next;
};
}  // namespace Gui::System
