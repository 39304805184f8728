#pragma once

#include <string>

#include "gui/framework/Panel.h"

class QPlainTextEdit;

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Help
{
/// Says what the thing does that is pointed at or that the keyboard has reached. The last text stays.
/// Where a manual is installed a button opens it.
class HelpPanel final : public Panel
{
public:
    HelpPanel(OrvGuiIF& owner, Panel* around);

    /// UTF-8; lines break where the panel ends.
    void showText(const std::string& text);

private:
    void addManualButton();

    QPlainTextEdit* edit;  // belongs to the panel, as Qt has it
};
}  // namespace Gui::Help
