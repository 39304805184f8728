#pragma once

#include "backend/bindings/functions/Functions.h"
#include "backend/bindings/functions/HelpTexts.h"
#include "gui/framework/Properties.h"

namespace Gui::Forms
{
/// Makes the sentence of a function the help of the control in which its settings are edited.
class SetHelpVisitor final
    : public Backend::VisitsAny<SetHelpVisitor, Backend::FunctionManagement::FunctionSettingsTypeVisitor,
                                Backend::FunctionManagement::AllFunctionSettings>
{
public:
    explicit SetHelpVisitor(QWidget& helpedControl) : control(helpedControl) {}

    template <class Settings>
    void visitAny(Settings& settings)
    {
        OfFamily<Settings> visitor(control);
        settings.accept(visitor);
    }

private:
    static void setHelpText(QWidget& control, int helpId)
    {
        Property::setHelp(control, QString::fromStdString(Backend::helpText(helpId)));
    }

    template <class Settings>
    class OfFamily final
        : public Backend::VisitsAny<OfFamily<Settings>, typename Settings::Visitor,
                                    Backend::FamilyOf<Backend::FunctionManagement::FunctionRows, Settings>>
    {
    public:
        explicit OfFamily(QWidget& helpedControl) : control(helpedControl) {}

        template <class Function>
        void visitAny(Function&)
        {
            setHelpText(control, Function::info.helpId);
        }

    private:
        QWidget& control;
    };

    QWidget& control;
};
}  // namespace Gui::Forms
