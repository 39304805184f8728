#pragma once

#include "gui/framework/Indicator.h"
#include "gui/framework/KeyTarget.h"

namespace Gui::System
{
/// Says where the keys of the computer go: KEYS PLAY, TYPING or ELSEWHERE.
class KeyBadge final : public Indicator
{
public:
    KeyBadge(const GdiManager& manager, QWidget* parent) : Indicator(manager, parent) {}

    void show(KeyTarget newTarget);

    QString getAccessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    KeyTarget target = KeyTarget::elsewhere;
};
}  // namespace Gui::System
