#pragma once

#include <QElapsedTimer>
#include <QListWidget>
#include <functional>
#include <vector>

#include "api/Bank.h"
#include "backend/model/BankEdit.h"

namespace Gui::Files
{
struct CarriedPrograms;

/// The programs of a bank with their numbers, in which they are arranged: by dragging, also from another list or
/// window (Control copies; between banks, Shift moves), by Alt and the arrows, and by the window's usual keys. F2 or a
/// double click renames in place. Typing selects the program whose number or name begins so. It changes nothing itself.
/// The GUI thread.
class BankList final : public QListWidget
{
public:
    explicit BankList(QWidget* parent = nullptr);

    /// A change that the user wants; `first` is the row of the first program that is selected when it is done.
    std::function<void(const Backend::BankEdit& edit, int first)> onEdit;
    /// Enter on a program.
    std::function<void(int number)> onChosen;
    enum class Step { undo, redo };
    std::function<void(Step step)> onStep;
    /// Why something is not done; empty when the user wants something else.
    std::function<void(const QString& text)> onRefused;

    /// Shows these programs; `current` is the one that plays, -1 for none here. Selected rows stay selected.
    void showBank(const Backend::Bank& newBank, int current);
    const Backend::Bank& getBank() const { return bank; }
    /// From 0, in their order.
    std::vector<int> getSelected() const;
    /// The last row in place of a first one beyond the end.
    void selectRows(int first, int number);

    // What the user wants with the selected programs
    void addProgram();
    void duplicate();
    void rename();
    void remove();
    enum class Direction { up, down };
    void moveSelected(Direction direction);
    enum class Take { copied, cut };
    void toClipboard(Take take) const;
    void paste();

    void keyboardSearch(const QString& text) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QList<QListWidgetItem*>& items) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction | Qt::MoveAction; }
    void dropEvent(QDropEvent* event) override;

private:
    class Item;

    bool useKey(const QKeyEvent& event);
    CarriedPrograms carry(Take take) const;
    void arrange(const CarriedPrograms& carried, int to);
    void post(Backend::BankEdit edit, int first);
    void renameTo(int number, const QString& name);

    Backend::Bank bank;
    int playing = -1;
    QString typed;
    QElapsedTimer sinceTyped;
};
}  // namespace Gui::Files
