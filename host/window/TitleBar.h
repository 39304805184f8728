#pragma once

#include <QWidget>

class QAbstractButton;

namespace Host
{
/// The title bar of the window's own border: the title, which moves the window when it is dragged, and buttons to
/// minimise and close it.
class TitleBar final : public QWidget
{
public:
    static constexpr int HEIGHT = 22;  ///< logical pixels

    explicit TitleBar(QWidget* frame);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    QAbstractButton* minimise;
    QAbstractButton* close;
    QPoint grip;  // where in the window it is dragged, if the desktop cannot move it
};
}  // namespace Host
