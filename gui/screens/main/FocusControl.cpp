#include "gui/screens/main/FocusControl.h"

namespace Gui
{
namespace
{
constexpr int SIDE = 10;
}

FocusControl::FocusControl(OrvGuiIF& owner, QWidget* parent) : QWidget(parent), gui(owner)
{
    setGeometry(0, 0, SIDE, SIDE);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Keyboard that plays"));
    lower();
}
}  // namespace Gui
