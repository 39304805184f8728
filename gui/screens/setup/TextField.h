#pragma once

#include "gui/screens/setup/EditField.h"

class QBoxLayout;

namespace Gui::Setup
{
struct Text;

/// A row with a line of text, which can be copied even if it cannot be changed.
class TextField final : public EditField
{
public:
    /// Both must outlive it.
    TextField(OrvGuiIF& owner, const Text& textRow, QBoxLayout& page);

    QString findFault() const override;
    void post() const override;

private:
    QString getKnown() const override;
    void show(const QString& text) override;

    const Text& row;
};
}  // namespace Gui::Setup
