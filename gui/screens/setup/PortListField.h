#pragma once

#include <vector>

#include "gui/screens/setup/LoopbackRule.h"
#include "gui/screens/setup/SettingField.h"

class QBoxLayout;
class QLabel;
class QListWidget;

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Setup
{
struct PortSide;

/// The ports of one direction, each with a check box. Rows that the user has not changed show the current state.
class PortListField final : public SettingField
{
public:
    /// Both must outlive it.
    PortListField(OrvGuiIF& owner, const PortSide& portSide, QBoxLayout& page);

    /// The ports as the user has set them.
    PortChoices getChoices() const;

    void follow() override;
    bool isChanged() const override;
    void post() const override;
    QWidget& getControl() const override;

private:
    bool isChecked(int row) const;
    std::vector<int> findChanged() const;

    OrvGuiIF& gui;
    const PortSide& side;
    QListWidget* list;
    QLabel* failures;
    PortChoices known;
};
}  // namespace Gui::Setup
