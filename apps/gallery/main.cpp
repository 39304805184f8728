// Shows the widgets and forms of the window in all states, for those who change their look.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QScrollArea>
#include <memory>

#include "api/GuiContext.h"
#include "api/OrvFactory.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "gui/forms/BindingFields.h"
#include "gui/forms/BindingPicker.h"
#include "gui/forms/SettingsForm.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/Fader.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Knob.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Skinner.h"
#include "gui/framework/TimeIntervalCtl.h"
#include "tests/stage/SilentPlayer.h"

namespace
{
using Gui::Property::set;
using Gui::Property::setFont;

/// Each widget in its states, a row for each kind.
class Widgets final : public QWidget
{
public:
    explicit Widgets(Gui::GuiContext& owner) : context(owner), grid(new QGridLayout(this))
    {
        addRow("Push button", [] { return new QPushButton("Save..."); });
        addRow("Switch", [] {
            auto* button = new QPushButton("MIDI thru");
            button->setCheckable(true);
            return button;
        });
        addRow("Check box", [] { return new QCheckBox("Use modifiers on key up"); });
        addRow("Label", [] { return new QLabel("Tempo"); });
        addRow("Value", [] {
            auto* label = new QLabel("120");
            set(*label, Gui::Property::TEXT, true);
            return label;
        });
        addRow("Edit", [] {
            auto* edit = new Gui::EditBox;
            edit->setText("C4");
            return edit;
        });
        addRow("List", [this] {
            auto* list = new Gui::ComboBox(context, Gui::ComboBox::Typing::readOnly);
            list->setEntries({{.text = "Default"}, {.text = "Synthesizer"}, {.text = "Gone", .enabled = false}});
            list->setSelectedIndex(1);
            return list;
        });
        addRow("Fader", [this] { return sized(new Gui::Fader(context, Qt::Horizontal), {160, 24}); });
        addRow("Knob", [this] { return sized(new Gui::Knob(context), {32, 32}); });
        addRow("Time interval", [this] { return new Gui::TimeIntervalCtl(context, 1, 30720); });
    }

private:
    template <class Control>
    static Control* sized(Control* control, QSize size)
    {
        control->setMinimumSize(size);
        control->setValue(64);
        return control;
    }

    template <class Make>
    void addRow(const QString& name, Make make)
    {
        const int row = grid->rowCount();
        grid->addWidget(new QLabel(name), row, 0);
        for (const auto state : {State::usual, State::checked, State::grey, State::disabled}) {
            QWidget* control = make();
            control->setAccessibleName(name);
            if (auto* button = qobject_cast<QAbstractButton*>(control); button != nullptr && state == State::checked)
                button->setChecked(true);
            set(*control, Gui::Property::GRAYTEXT, state == State::grey);
            control->setEnabled(state != State::disabled);
            grid->addWidget(control, row, 1 + static_cast<int>(state));
        }
    }
    enum class State { usual, checked, grey, disabled };

    Gui::GuiContext& context;
    QGridLayout* grid;
};

/// The picker of functions, or of translations, and the form of the one that is chosen.
class Bindings final : public QWidget
{
public:
    using Of = Gui::Forms::BindingPicker::Of;

    Bindings(Gui::GuiContext& context, Backend::OrvIF& backend, Of kind)
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
    }

private:
    void choose(const std::string& typeName)
    {
        form->setRecords({});
        function = isFunction ? Backend::FunctionManagement::createFunction(typeName, orv) : nullptr;
        translation = Backend::MidiInput::TranslationManagement::createTranslation(typeName);
        if (function != nullptr)
            form->setRecords({Gui::Forms::fieldsOf(*function, lists)});
        else if (!isFunction && translation != nullptr)
            form->setRecords({Gui::Forms::fieldsOf(*translation, lists)});
    }

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

struct Context final : Gui::GuiContext {
    Gui::GdiManager& getGdiManager() override { return gdi; }
    int getMouseSensitivity() const override { return 1; }

    Gui::GdiManager gdi;
};
}  // namespace

int main(int argc, char** argv)
{
    CLI::App options("Shows the widgets and forms of Orvane's window in all states.", "gallery");
    int skin = 0;
    int scale = 100;
    std::string picture;
    options.add_option("--skin", skin, "0 classic, 1 high contrast, 2 light")->check(CLI::Range(0, 2));
    options.add_option("--scale", scale, "In percent")->check(CLI::Range(75, 400));
    options.add_option("--picture", picture, "Writes a picture to this file and ends");
    CLI11_PARSE(options, argc, argv);

    const QApplication application(argc, argv);
    SilentPlayer player;
    const auto orv = Backend::OrvFactory::makeOrv("", player, false);
    Context context;
    context.gdi.setSkin(Gui::GdiManager::SKINS[static_cast<std::size_t>(skin)]);
    context.gdi.setScale(scale / 100.0);
    Gui::Skinner skinner(context.gdi);
    auto* all = new QWidget;
    auto* column = new QVBoxLayout(all);
    column->addWidget(new Widgets(context));
    for (const auto kind : {Bindings::Of::functions, Bindings::Of::translations})
        column->addWidget(new Bindings(context, *orv, kind));
    QScrollArea window;
    window.setWindowTitle(QStringLiteral("Orvane gallery"));
    window.setWidget(all);
    window.setWidgetResizable(true);
    skinner.skinWindow(window);
    all->setAutoFillBackground(true);
    window.resize(context.gdi.px(QSize(960, 900)));
    window.show();
    if (picture.empty()) return QApplication::exec();
    QApplication::processEvents();
    return all->grab().save(QString::fromStdString(picture)) ? 0 : 1;
}
