#pragma once

#include <QWidget>
#include <memory>

namespace Gui
{
class GuiContext;
}

/// The layers of a backend of its own as a list, with their settings beneath it: everything that a section does with
/// its records, undo included.
class Records final : public QWidget
{
public:
    explicit Records(Gui::GuiContext& context);
    ~Records() override;

    /// Whether the backend has reported the layers.
    bool areShown() const;

private:
    struct Program;

    std::unique_ptr<Program> program;
};
