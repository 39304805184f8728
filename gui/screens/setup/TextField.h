#pragma once

#include "gui/screens/setup/SettingField.h"

class QBoxLayout;

namespace Gui
{
class EditBox;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::Setup
{
struct Text;

/// A row with a line of text, which can be copied even if it cannot be changed.
class TextField final : public ValueField<QString>
{
public:
    /// Both must outlive it.
    TextField(OrvGuiIF& owner, const Text& textRow, QBoxLayout& page);

    QString findFault() const override;
    void post() const override;
    QWidget& getControl() const override;

private:
    QString getKnown() const override;
    QString getShown() const override;
    void show(const QString& text) override;

    OrvGuiIF& gui;
    const Text& row;
    EditBox* edit;
};
}  // namespace Gui::Setup
