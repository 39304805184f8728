#pragma once

#include <QPoint>
#include <QWidget>

class QAbstractButton;
class QDialog;

namespace Gui
{
class GdiManager;

/// The border and the title of a dialog, in the look of the window's own: behind its controls, moved by the title. The
/// GUI thread.
class DialogFrame final : public QWidget
{
public:
    /// In place of the desktop's; before the dialog is shown. Owned by the dialog. A dialog that has one keeps it.
    static void addTo(QDialog& dialog, const GdiManager& manager);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    DialogFrame(QDialog& dialog, const GdiManager& manager);

    int titleHeight() const;

    const GdiManager& gdi;
    QAbstractButton* close;
    QPoint grip;  // of the pointer in the dialog, while it is moved
};
}  // namespace Gui
