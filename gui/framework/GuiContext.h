#pragma once

class QWidget;

namespace Gui
{
class GdiManager;

/// What a widget needs of the window it stands in. The GUI thread.
class GuiContext
{
public:
    virtual ~GuiContext() = default;

    virtual GdiManager& getGdiManager() = 0;
    /// What a movement of the mouse is divided by, at least 1.
    virtual int getMouseSensitivity() const = 0;
    /// Shows the help text of a control, the one of its `Property::HELP`.
    virtual void displayHelp(const QWidget& control) = 0;
};
}  // namespace Gui
