#pragma once

class QBoxLayout;

namespace Gui
{
/// Adds a button that opens that page of the manual, where it is installed.
void addManualButton(QBoxLayout& row, const char* page);
}  // namespace Gui
