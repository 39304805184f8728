#include "gui/screens/computerinput/KeySettings.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "api/OrvGuiIF.h"
#include "gui/forms/BindingEditor.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/Properties.h"
#include "gui/screens/computerinput/KeyRecords.h"

namespace Gui::ComputerInput
{
namespace
{
struct Modifier {
    const char* name;
    bool Key::*member;
};
constexpr Modifier MODIFIERS[] = {{QT_TR_NOOP("Shift"), &Key::shift},
                                  {QT_TR_NOOP("Ctrl"), &Key::control},
                                  {QT_TR_NOOP("Alt"), &Key::alt},
                                  {QT_TR_NOOP("Win"), &Key::win}};
}  // namespace

KeySettings::KeySettings(OrvGuiIF& owner, Forms::RecordEditor& shownEditor, KeyRecords& shownRecords, QWidget* parent)
    : QWidget(parent), editor(shownEditor), records(shownRecords)
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    auto* const line = new QHBoxLayout;
    column->addLayout(line);
    makeFirstRow(*line);
    column->addWidget(new Forms::BindingEditor(owner, editor, records, Forms::BindingEditor::Of::functions), 1);
    editor.observe(*this, [this] { showSelected(); });
    showSelected();
}

void KeySettings::makeFirstRow(QHBoxLayout& line)
{
    title = new QLabel;
    Property::set(*title, Property::TEXT, true);
    line.addWidget(title, 1);
    line.addWidget(new QLabel(tr("With")));
    for (std::size_t i = 0; i < modifiers.size(); ++i) {
        auto* const box = modifiers[i] = new QCheckBox(tr(MODIFIERS[i].name));
        Property::setHelp(*box, tr("Shows and edits what the keys do while this modifier is held."));
        connect(box, &QCheckBox::clicked, this, [this, i](bool on) {
            Key chosen = records.getModifiers();
            chosen.*MODIFIERS[i].member = on;
            if (onModifiers) onModifiers(chosen);
        });
        line.addWidget(box);
    }
    using Command = Forms::RecordEditor::Command;
    const auto make = [&](const QString& text, Command command, const QString& help) {
        auto* const button = new QPushButton(text);
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(tr("%1 keys").arg(text));
        Property::setHelp(*button, help);
        connect(button, &QPushButton::clicked, this, [this, command] { editor.execute(command); });
        line.addWidget(button);
    };
    make(tr("Copy"), Command::copy, tr("Copies what the selected keys do."));
    make(tr("Paste"), Command::paste,
         tr("Makes the selected keys do what was copied; from one key on, if several were copied."));
    make(tr("Clear"), Command::remove, tr("The selected keys do nothing any more."));
}

void KeySettings::showModifiers()
{
    for (std::size_t i = 0; i < modifiers.size(); ++i)
        modifiers[i]->setChecked(records.getModifiers().*MODIFIERS[i].member);
}

void KeySettings::showSelected()
{
    const auto selected = editor.getSelection().getSelected();
    title->setText(selected.empty()       ? tr("Click a key, or click LEARN and press one.")
                   : selected.size() == 1 ? KeyRecords::textOf(KeyRecords::keyOf(selected.front()))
                                          : tr("%1 keys").arg(selected.size()));
}
}  // namespace Gui::ComputerInput
