#pragma once

#include <QWidget>

class QAbstractButton;

namespace Host
{
/// The top of the window's own border: the title, a grip to move the window by, and buttons to minimise and to close
/// it.
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
    QPoint grip;  // in the window, where no desktop moves it for us
};
}  // namespace Host
