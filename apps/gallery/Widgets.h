#pragma once

#include <QGridLayout>
#include <QWidget>
#include <functional>

#include "api/GuiContext.h"

/// The controls of `gui/framework`, a row for each kind and a column for each state that it has.
class Widgets final : public QWidget
{
public:
    explicit Widgets(Gui::GuiContext& owner);

    /// Puts pictures in place of the controls of the column "focused", since only one control has the focus at a time.
    /// Once the window is active and skinned.
    void photographFocus();

private:
    enum State : int { usual, checked, pressed, grey, disabled, focused };
    using Make = std::function<QWidget*()>;

    void addButtons();
    void addValues();
    void addRow(const QString& name, std::initializer_list<State> states, const Make& make);

    Gui::GuiContext& context;
    QGridLayout* grid;
};
