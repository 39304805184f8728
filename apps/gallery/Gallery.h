#pragma once

#include <QImage>
#include <QScrollArea>
#include <QTimer>

#include "api/OrvGuiIF.h"
#include "api/ParentWindow.h"

class Parts;
class Records;
class Widgets;

/// What a gallery looks like.
struct Appearance {
    int skin = 0;     ///< an index in `GdiManager::SKINS`
    int scale = 100;  ///< percent
};

/// A window with the widgets and forms of Orvane in all states. The backend must not have been started, and must
/// outlive it.
class Gallery final : public QScrollArea, private Gui::ParentWindow
{
public:
    Gallery(Backend::OrvIF& orv, const Appearance& appearance);
    ~Gallery() override;

    /// All of it, also what is scrolled away. Shows the window.
    QImage takePicture();

protected:
    bool event(QEvent* event) override;

private:
    QWidget* getWidget() override { return &surroundings; }
    void windowResized(int, int) override {}
    void moveWindow(const RelativeFixedValue&, const RelativeFixedValue&) override {}
    void settle();
    void photograph();

    QWidget surroundings;  // of the window that lends its look; never shown
    std::unique_ptr<Gui::OrvGuiIF> gui;
    Widgets* widgets;
    Parts* parts;
    Records* records;
    bool isPhotographed = false;
    QTimer lighting;
};
