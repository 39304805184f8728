#pragma once

#include <QFrame>
#include <functional>
#include <string>
#include <vector>

class QLineEdit;
class QListWidget;

namespace Gui
{
class GdiManager;

namespace System
{
/// The list of the bank's programs with their numbers, in two columns if it is long. Typing leaves those whose number
/// begins with the text or whose name contains it; Enter or a click chooses. It closes by a choice, by Escape and by a
/// click elsewhere, and then deletes itself. The GUI thread.
class ProgramList final : public QFrame
{
public:
    /// `current` counts from 0 and need not be in the list.
    ProgramList(const GdiManager& manager, const std::vector<std::string>& names, int current, QWidget* parent);

    std::function<void(int number)> onChosen;
    /// The user wants to arrange the programs.
    std::function<void()> onArrange;

    /// Hides the rows of a list of all programs that do not fit what was typed, and selects the first one that does.
    static void showFitting(QListWidget& list, const QString& text);

    /// With its top left corner there, or as near as it fits on the screen.
    void showAt(const QPoint& globalPosition);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void find(const QString& text);
    void choose();

    const GdiManager& gdi;
    QLineEdit* search;
    QListWidget* list;
};
}  // namespace System
}  // namespace Gui
