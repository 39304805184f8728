#pragma once

#include <QObject>

class QWidget;

namespace Gui
{
class GuiContext;

/// Shows a control's help when the pointer comes over it or the keyboard reaches it. The control owns it.
class HoverHelp final : public QObject
{
public:
    HoverHelp(GuiContext& guiContext, QWidget& control);

    bool eventFilter(QObject* control, QEvent* event) override;

private:
    GuiContext& context;
};
}  // namespace Gui
