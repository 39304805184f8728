#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "gui/forms/RecordEditor.h"

namespace Gui::Forms
{
/// The sections of the window that can be edited, with the one that window keys are for: that which has the focus, or
/// in which records were selected last. The GUI thread.
class EditableSections final : public QObject
{
public:
    /// A section and the view that gets the focus; it is forgotten when either is gone.
    void add(RecordEditor& editor, QWidget& view);

    /// Null if there is none that the user sees.
    RecordEditor* getActive();

    enum class Direction { next, previous };
    /// Gives the focus to the next section that the user sees, from top to bottom and round again. False if there is
    /// none.
    bool moveFocus(Direction direction);

private:
    struct Section {
        QPointer<RecordEditor> editor;
        QPointer<QWidget> view;
        std::vector<Backend::RecordId> selected;
    };

    std::vector<Section*> getVisible();
    void selectionChanged(RecordEditor& editor);

    std::vector<Section> sections;
    QPointer<RecordEditor> active;
};
}  // namespace Gui::Forms
