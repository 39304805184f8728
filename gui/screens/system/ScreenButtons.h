#pragma once

#include <QWidget>
#include <map>

#include "backend/model/Screen.h"

class QPushButton;

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::System
{
/// The name of a screen on its button and in menus.
QString nameOf(Backend::Screen screen);

/// A row of buttons that show and hide the other screens. A button is down while its screen is shown.
class ScreenButtons final : public QWidget
{
public:
    static constexpr int WIDTH = 744;  ///< logical pixels
    static constexpr int HEIGHT = 24;

    ScreenButtons(OrvGuiIF& owner, QWidget* parent);

    /// Adds the button of a screen, up; once for each screen.
    void offerScreen(Backend::Screen screen);
    void screenShown(Backend::Screen screen, bool on);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();

    OrvGuiIF& gui;
    std::map<Backend::Screen, QPushButton*> buttons;
};
}  // namespace Gui::System
