#include "gui/forms/RecordForm.h"

#include <QVBoxLayout>
#include <utility>

#include "gui/forms/RecordEditor.h"
#include "gui/forms/SettingsForm.h"
#include "gui/framework/EditPoster.h"

namespace Gui::Forms
{
RecordForm::RecordForm(GuiContext& owner, RecordEditor& shownEditor, QWidget* parent, int columns, RecordPart shownPart)
    : QWidget(parent), editor(shownEditor), part(std::move(shownPart)), form(new SettingsForm(owner, nullptr, columns))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(form);
    form->execute = [this](const QString& field, const std::function<void()>& set) {
        editor.change(shown, field, gestureOf(field), [&] {
            set();
            if (part.complete) part.complete(shown, field);
        });
    };
    form->onRemark = [this](const QString& remark) { editor.say(remark); };
    editor.observe(*this, [this] { showSelected(); });
    showSelected();
}

void RecordForm::showSelected()
{
    const auto ids = editor.isOpen() ? editor.getSelection().getSelected() : std::vector<Backend::RecordId>();
    setVisible(!ids.empty());
    const std::uint64_t newVersion = part.getVersion ? part.getVersion() : 0;
    if (ids == shown && newVersion == version) return form->follow();
    shown = ids;
    version = newVersion;
    std::vector<std::vector<FormField>> fields;
    for (const auto id : ids) fields.push_back(part.fieldsOf ? part.fieldsOf(id) : editor.getRecords().fieldsOf(id));
    form->setRecords(std::move(fields));
}

void RecordForm::renew()
{
    shown.clear();
    showSelected();
}

void RecordForm::focusFirst() { form->focusFirst(); }

std::uint32_t RecordForm::gestureOf(const QString& field)
{
    if (!form->isDragging()) dragGesture = 0;
    if (!form->isDragging()) return editor.getEdits().gestureOf(field.toStdString());
    if (dragGesture == 0) dragGesture = editor.getEdits().beginGesture();
    return dragGesture;
}
}  // namespace Gui::Forms
