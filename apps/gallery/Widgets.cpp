#include "apps/gallery/Widgets.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

#include "gui/framework/ComboBox.h"
#include "gui/framework/ComboButton.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/Fader.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Knob.h"
#include "gui/framework/Properties.h"
#include "gui/framework/RadioButton.h"
#include "gui/framework/TimeIntervalCtl.h"
#include "gui/screens/system/ArrowButton.h"

using namespace Gui;

namespace
{
constexpr const char* STATES[] = {"usual", "checked", "pressed", "grey", "disabled", "focused"};
constexpr QRect BUTTON{0, 0, 60, 20};
}  // namespace

Widgets::Widgets(GuiContext& owner) : context(owner), grid(new QGridLayout(this))
{
    int column = 0;
    for (const char* state : STATES) grid->addWidget(new QLabel(state), 0, ++column);
    addButtons();
    addValues();
}

void Widgets::addButtons()
{
    addRow("Push button", {usual, pressed, grey, disabled, focused}, [] { return new QPushButton("Save..."); });
    addRow("Warning", {usual, pressed, disabled, focused}, [] {
        auto* button = new QPushButton("RESET");
        Property::setColour(*button, GdiManager::Role::frame);
        return button;
    });
    addRow("Switch", {usual, checked, grey, disabled, focused}, [] {
        auto* button = new QPushButton("MIDI thru");
        button->setCheckable(true);
        return button;
    });
    addRow("Arrow button", {usual, pressed, disabled, focused}, [this] {
        auto* button = new System::ArrowButton(context.getGdiManager(), Look::Direction::right, nullptr);
        button->setMinimumHeight(context.getGdiManager().px(32));
        return button;
    });
    addRow("Button", {usual, pressed, grey, disabled, focused},
           [this] { return new Button(context, 0, "M", BUTTON, nullptr); });
    addRow("Latching button", {usual, checked, grey, disabled, focused},
           [this] { return new Button(context, 0, "SOLO", BUTTON, nullptr, Button::Action::latching); });
    auto* group = new QButtonGroup(this);
    group->setExclusive(false);  // each stands for one of a group
    addRow("Radio button", {usual, checked, grey, disabled, focused},
           [this, group] { return new RadioButton(context, 0, "1/8", BUTTON, nullptr, *group); });
    addRow("Button with a menu", {usual, grey, disabled, focused}, [this] {
        auto* button = new ComboButton(context, 0, {"Up", "Down", "Random"}, BUTTON, nullptr);
        button->setSelectedIndex(1);
        return button;
    });
    addRow("Check box", {usual, checked, grey, disabled, focused}, [] { return new QCheckBox("Global"); });
    addRow("Option", {usual, checked, grey, disabled, focused}, [] {
        auto* option = new QRadioButton("Program");
        option->setAutoExclusive(false);
        return option;
    });
}

void Widgets::addValues()
{
    addRow("Label", {usual, grey, disabled}, [] { return new QLabel("Tempo"); });
    addRow("Value", {usual, grey, disabled}, [] {
        auto* label = new QLabel("120");
        Property::set(*label, Property::TEXT, true);
        return label;
    });
    addRow("Edit", {usual, grey, disabled, focused}, [] {
        auto* edit = new EditBox;
        edit->setText("C4");
        return edit;
    });
    addRow("List", {usual, grey, disabled, focused}, [this] {
        auto* list = new ComboBox(context, ComboBox::Typing::readOnly);
        list->setEntries({{.text = "Default"}, {.text = "Synthesizer"}, {.text = "Gone", .enabled = false}});
        list->setSelectedIndex(1);
        return list;
    });
    const auto valued = [this](auto* slider, QSize size) {
        slider->setMinimumSize(context.getGdiManager().px(size));
        slider->setMaximum(127);
        slider->setValue(80);
        return slider;
    };
    addRow("Fader", {usual, disabled, focused}, [this, valued] {
        return valued(new Fader(context, Qt::Horizontal), {110, 24});
    });
    addRow("Vertical fader", {usual, disabled, focused}, [this, valued] {
        return valued(new Fader(context, Qt::Vertical), {24, 80});
    });
    addRow("Knob", {usual, disabled, focused}, [this, valued] { return valued(new Knob(context), {32, 32}); });
    addRow("Slider", {usual, disabled, focused}, [valued] { return valued(new QSlider(Qt::Horizontal), {110, 20}); });
    addRow("Time interval", {usual, disabled, focused}, [this] { return new TimeIntervalCtl(context, 1, 30720); });
}

void Widgets::addRow(const QString& name, std::initializer_list<State> states, const Make& make)
{
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(name), row, 0);
    for (const State state : states) {
        QWidget* control = make();
        control->setAccessibleName(name);
        if (auto* button = qobject_cast<QAbstractButton*>(control)) {
            if (state == checked) button->setChecked(true);
            if (state == pressed) button->setDown(true);
        }
        Property::set(*control, Property::GRAYTEXT, state == grey);
        control->setEnabled(state != disabled);
        grid->addWidget(control, row, 1 + state);
    }
}

void Widgets::photographFocus()
{
    for (int row = 1; row < grid->rowCount(); ++row) {
        auto* item = grid->itemAtPosition(row, 1 + focused);
        if (item == nullptr) continue;
        QWidget* control = item->widget();
        control->setFocus(Qt::TabFocusReason);
        auto* picture = new QLabel;
        picture->setPixmap(control->grab());
        picture->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        delete grid->replaceWidget(control, picture);
        delete control;
    }
}
