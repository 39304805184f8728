#include "gui/screens/output/KeyboardAccessibility.h"

#include <QAccessibleWidget>

#include "gui/screens/output/MusicKeyboardCtl.h"

namespace Gui::Output
{
namespace
{
class AccessibleKeyboard final : public QAccessibleWidget
{
public:
    explicit AccessibleKeyboard(MusicKeyboardCtl& shown)
        : QAccessibleWidget(&shown, QAccessible::Graphic), keyboard(shown)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? keyboard.getSoundingNames() : QAccessibleWidget::text(kind);
    }

private:
    const MusicKeyboardCtl& keyboard;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object)
{
    auto* keyboard = dynamic_cast<MusicKeyboardCtl*>(object);
    return keyboard == nullptr ? nullptr : new AccessibleKeyboard(*keyboard);
}
}  // namespace

void installKeyboardAccessibility()
{
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeAccessible), true);
}

void tellSoundingNames(MusicKeyboardCtl& keyboard)
{
    if (!QAccessible::isActive()) return;
    QAccessibleValueChangeEvent event(&keyboard, keyboard.getSoundingNames());
    QAccessible::updateAccessibility(&event);
}
}  // namespace Gui::Output
