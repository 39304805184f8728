#pragma once

#include <QString>
#include <functional>

class QBoxLayout;
class QObject;

namespace Gui
{
/// Whether that page of the manual is installed.
bool hasManualPage(const char* page);

/// Opens that page of the manual. If it cannot be opened, `showProblem` is called with a sentence that says why, up to
/// ten seconds later and only while `owner` exists.
void openManual(QObject& owner, const char* page, const std::function<void(const QString& sentence)>& showProblem);

/// Adds a button that opens that page of the manual, where it is installed.
void addManualButton(QBoxLayout& row, const char* page);
}  // namespace Gui
