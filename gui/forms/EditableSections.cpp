#include "gui/forms/EditableSections.h"

#include <QScrollArea>
#include <algorithm>
#include <utility>

namespace Gui::Forms
{
void EditableSections::add(RecordEditor& editor, QWidget& view)
{
    sections.push_back({&editor, &view, {}});
    editor.observe(*this, [this, &editor] { selectionChanged(editor); });
}

void EditableSections::selectionChanged(RecordEditor& editor)
{
    for (Section& section : sections) {
        auto selected = editor.getSelection().getSelected();
        if (section.editor != &editor || selected == section.selected) continue;
        section.selected = std::move(selected);
        if (!section.selected.empty()) active = &editor;
    }
}

/// From top to bottom.
std::vector<EditableSections::Section*> EditableSections::getVisible()
{
    std::erase_if(sections,
                  [](const Section& section) { return section.editor == nullptr || section.view == nullptr; });
    std::vector<Section*> visible;
    for (Section& section : sections)
        if (section.view->isVisible()) visible.push_back(&section);
    std::ranges::stable_sort(visible, {},
                             [](const Section* section) { return section->view->mapToGlobal(QPoint()).y(); });
    return visible;
}

RecordEditor* EditableSections::getActive()
{
    RecordEditor* lastUsed = nullptr;
    for (const Section* section : getVisible()) {
        if (section->view->hasFocus()) return section->editor;
        if (section->editor == active) lastUsed = active;
    }
    return lastUsed;
}

bool EditableSections::moveFocus(Direction direction)
{
    const auto visible = getVisible();
    if (visible.empty()) return false;
    const auto size = std::ssize(visible);
    const auto now = std::ranges::find_if(visible, [](const Section* section) { return section->view->hasFocus(); }) -
                     visible.begin();
    const bool isNext = direction == Direction::next;
    std::ptrdiff_t target = isNext ? 0 : size - 1;
    if (now != size) target = (now + (isNext ? 1 : size - 1)) % size;
    const Section& section = *visible[static_cast<std::size_t>(target)];
    active = section.editor;
    section.view->setFocus(isNext ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    for (QWidget* around = section.view; around != nullptr; around = around->parentWidget())
        if (auto* const column = qobject_cast<QScrollArea*>(around)) column->ensureWidgetVisible(section.view);
    return true;
}
}  // namespace Gui::Forms
