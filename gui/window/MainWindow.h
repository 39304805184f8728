#pragma once

#include <QWidget>
#include <functional>
#include <memory>

class QDialog;
class QPushButton;

namespace Gui
{
class KeyPresses;
class OrvGuiIF;
class ScreenColumn;
class WindowKeys;

/// The window itself: the screens in one column, and the computer keyboard that plays in it. Three buttons, with reset
/// among them, stand where the system screen is hidden, and alone while no screen is shown. Its natural size follows
/// its screens; with less height the column scrolls below the upper rows of the system screen, with more width it is
/// centred. The GUI thread.
class MainWindow final : public QWidget
{
public:
    /// The width of all screens with the margins and room for a scroll bar, in logical pixels.
    static constexpr int WIDTH = 980;

    using Resized = std::function<void(QSize before, QSize now)>;

    /// A child of `parent`, which it fills, or a window of its own where that is null. `onResize` is called when its
    /// natural size changes.
    MainWindow(OrvGuiIF& owner, QWidget* parent, Resized onResize);
    ~MainWindow() override;

    /// Hides all screens, or shows those that were hidden so, at least the system screen.
    void setCompact(bool on);
    bool isCompact() const;

    /// The scale has changed.
    void rescale();
    /// The natural size in logical pixels of 100 percent.
    QSize getNaturalSize() const;

    /// Gives the focus back to playing, unless a text is being edited.
    void setPlayingFocus();
    /// See `WindowKeyboard`.
    void playEveryKey(bool on);
    /// Whether a dialog of it is open.
    bool hasDialog() const;

    void setMidiThru(bool on);
    void setGlobalKeyboard(bool on);

    ScreenColumn& getScreens() { return *screens; }
    KeyPresses& getKeyPresses();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    class ColumnView;

    void makeButtons();
    void fit();
    void layOut();
    int getHeadHeight() const;
    void showScreenMenu(const QPoint& globalPosition);
    void showHelpOf(const QWidget& control);
    void frameDialog(QDialog& dialog) const;

    OrvGuiIF& gui;
    const Resized resized;
    std::unique_ptr<WindowKeys> keys;
    QPushButton* resetButton = nullptr;  // these are owned by their Qt parents
    QPushButton* thruButton = nullptr;
    QPushButton* keyboardButton = nullptr;
    ColumnView* view = nullptr;
    ScreenColumn* screens = nullptr;
    QSize lastSize;
};
}  // namespace Gui
