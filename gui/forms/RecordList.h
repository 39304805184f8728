#pragma once

#include <QListWidget>

namespace Gui::Forms
{
class RecordEditor;

/// The records of a section as rows. The mouse, the keys of a list and typing the beginning of a row select them; Enter
/// or a double click opens their settings, a right click the menu of the section. While it has the focus, the keys of
/// the computer do not play. The GUI thread.
class RecordList final : public QListWidget
{
public:
    /// The editor must outlive it.
    explicit RecordList(RecordEditor& shownEditor, QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void showRecords();
    void search(const QString& text);

    RecordEditor& editor;
};
}  // namespace Gui::Forms
