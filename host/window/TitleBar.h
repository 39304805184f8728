#pragma once

#include <QWidget>
#include <vector>

class QAbstractButton;

namespace Host
{
class Frame;

/// The title bar of the window's own border: the title, which moves the window when it is dragged and maximises it at a
/// double click, and buttons for the small window, full screen, and to minimise, maximise and close it.
class TitleBar final : public QWidget
{
public:
    static constexpr int HEIGHT = 22;  ///< logical pixels

    explicit TitleBar(Frame& frame);

    void showMaximised(bool on);
    /// The title is dim while the keys do not play.
    void showKeysPlay(bool on);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    std::vector<QAbstractButton*> getButtons() const;

    Frame& frame;
    QAbstractButton* compact;
    QAbstractButton* minimise;
    QAbstractButton* maximise;
    QAbstractButton* close;
    bool keysPlay = true;
    QPoint grip;  // where in the window it is dragged, if the desktop cannot move it
};
}  // namespace Host
