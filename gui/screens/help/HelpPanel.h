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
/// Shows the help text of the control under the pointer or with the focus; the last text stays. A button opens the
/// manual where it is installed.
class HelpPanel final : public Panel
{
public:
    HelpPanel(OrvGuiIF& owner, Panel* around);

    /// UTF-8; lines are wrapped.
    void showText(const std::string& text);

private:
    void addManualButton();

    QPlainTextEdit* edit;  // owned by the panel
};
}  // namespace Gui::Help
