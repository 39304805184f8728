#pragma once

#include <QWidget>
#include <memory>

#include "api/GuiContext.h"
#include "api/OrvIF.h"
#include "backend/model/Function.h"
#include "backend/model/Translation.h"
#include "gui/forms/BindingFields.h"
#include "gui/forms/BindingPicker.h"
#include "gui/forms/SettingsForm.h"

/// The picker of functions, or of translations, and the form of the one that is chosen.
class Bindings final : public QWidget
{
public:
    using Of = Gui::Forms::BindingPicker::Of;

    Bindings(Gui::GuiContext& context, Backend::OrvIF& backend, Of kind);

private:
    void choose(const std::string& typeName);

    Backend::OrvIF& orv;
    const Gui::Forms::FieldLists lists{.outputs = {"Synthesizer", "Stage Piano"}, .presets = [](const char*) {
                                           return QStringList{"First", "Second"};
                                       }};
    std::unique_ptr<Backend::FunctionManagement::Function> function;
    std::unique_ptr<Backend::MidiInput::TranslationManagement::Translation> translation;
    Gui::Forms::BindingPicker* picker;
    Gui::Forms::SettingsForm* form;
    const bool isFunction;
};
