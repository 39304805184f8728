#pragma once

#include "gui/framework/Button.h"

class QButtonGroup;

namespace Gui
{
/// A button of a group of which one is pressed: pressing one releases the others. The arrow keys move through the
/// group.
class RadioButton : public Button
{
public:
    RadioButton(GuiContext& guiContext, int buttonId, const QString& label, const QRect& rectangle, QWidget* parent,
                QButtonGroup& group);

protected:
    /// The listener is notified of the pressed button only.
    void mouseDown() override;
    void keyPressEvent(QKeyEvent* event) override;
};
}  // namespace Gui
