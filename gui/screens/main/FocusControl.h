#pragma once

#include <QWidget>

namespace Gui
{
class OrvGuiIF;

/// Holds the keyboard focus while no text is edited: what is typed there plays.
class FocusControl final : public QWidget
{
public:
    FocusControl(OrvGuiIF& owner, QWidget* parent);

private:
    OrvGuiIF& gui;
};
}  // namespace Gui
