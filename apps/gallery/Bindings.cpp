#include "apps/gallery/Bindings.h"

#include <QHBoxLayout>

#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "gui/framework/EditBox.h"

Bindings::Bindings(Gui::GuiContext& context, Backend::OrvIF& backend, Of kind)
    : orv(backend),
      picker(new Gui::Forms::BindingPicker(kind)),
      form(new Gui::Forms::SettingsForm(context)),
      isFunction(kind == Of::functions)
{
    auto* line = new QHBoxLayout(this);
    line->addWidget(picker);
    line->addWidget(form, 1, Qt::AlignTop);
    picker->onChoose = [this](const std::string& typeName) { choose(typeName); };
    picker->setChosen("MidiNoteOn");
    choose("MidiNoteOn");
    // A value that was typed outside its limits, which the form says.
    for (auto* edit : form->findChildren<Gui::EditBox*>()) {
        if (edit->accessibleName() != "Velocity") continue;
        edit->setText("300");
        edit->setModified(true);
        Q_EMIT edit->editingFinished();
    }
}

void Bindings::choose(const std::string& typeName)
{
    form->setRecords({});
    function = isFunction ? Backend::FunctionManagement::createFunction(typeName, orv) : nullptr;
    translation = Backend::MidiInput::TranslationManagement::createTranslation(typeName);
    if (function != nullptr)
        form->setRecords({Gui::Forms::fieldsOf(*function, lists)});
    else if (!isFunction && translation != nullptr)
        form->setRecords({Gui::Forms::fieldsOf(*translation, lists)});
}
