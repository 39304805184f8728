#pragma once

#include <QTreeWidget>
#include <functional>
#include <vector>

#include "backend/model/SetList.h"

namespace Gui::System
{
/// The entries of a set list, in order: a mark at the current one, its program, its note. What the user does is
/// reported, not done: a click on the mark or Enter goes to the entry, Delete removes the selected ones, dragging or
/// Alt with an arrow moves them, F2 or a double click edits the note in its place. The GUI thread.
class SetListView final : public QTreeWidget
{
public:
    explicit SetListView(QWidget* parent);

    /// Its ids name the entries in what is reported. The selection and a note that is edited stay.
    void showList(const Backend::SetList& newList);

    std::vector<int> getSelected() const;  ///< ids, from the top
    /// The id of the entry below the selected ones; 0 for the end, also if none is selected.
    int getPlaceBelow() const;
    void editNote();

    std::function<void(int id)> onGo;
    std::function<void()> onRemove;
    std::function<void(int before)> onMove;  ///< the selected ones, before that entry or, for 0, to the end
    std::function<void(int id, const QString& note)> onNote;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    enum Column { MARK, PROGRAM, NOTE };

    void showEntry(int row, const Backend::SetEntry& entry);
    int idAt(int row) const;
    void move(int step);
    void moveTo(int before);

    Backend::SetList list;
    bool isFilling = false;
};
}  // namespace Gui::System
