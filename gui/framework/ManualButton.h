#pragma once

class QBoxLayout;

namespace Gui
{
/// Whether that page of the manual is installed.
bool hasManualPage(const char* page);

/// Adds a button that opens that page of the manual, where it is installed.
void addManualButton(QBoxLayout& row, const char* page);
}  // namespace Gui
