#pragma once

namespace Gui
{
class GdiManager;

/// What a control uses of the window around it. It outlives its controls. The GUI thread.
class GuiContext
{
public:
    virtual ~GuiContext() = default;

    virtual GdiManager& getGdiManager() = 0;
    /// How many logical pixels of a drag make one step, 1 or more.
    virtual int getMouseSensitivity() const = 0;
};
}  // namespace Gui
