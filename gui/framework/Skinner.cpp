#include "gui/framework/Skinner.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QCheckBox>
#include <QChildEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRadioButton>

#include "gui/framework/Look.h"
#include "gui/framework/Properties.h"

namespace Gui
{
using Property::isSet;
using FontRole = GdiManager::FontRole;

namespace
{
void mark(QWidget& control, const char* property, bool on)
{
    Property::set(control, property, on);
    control.update();
}

/// The viewport of a scrolled control, which has the colours of that control.
bool isViewport(const QWidget& widget)
{
    const auto* area = qobject_cast<const QAbstractScrollArea*>(widget.parentWidget());
    return area != nullptr && area->viewport() == &widget;
}

bool isPushButton(const QWidget& widget)
{
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr &&
           qobject_cast<const QCheckBox*>(&widget) == nullptr && qobject_cast<const QRadioButton*>(&widget) == nullptr;
}

/// A slider of two positions changes at a click anywhere on it; true for a mouse event on one.
bool flipSwitch(QObject& object, const QEvent& event)
{
    auto* slider = qobject_cast<QAbstractSlider*>(&object);
    if (slider == nullptr || !isSet(*slider, Property::TOGGLE)) return false;
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            if (slider->isEnabled() && static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton)
                slider->setValue(slider->value() == slider->maximum() ? slider->minimum() : slider->maximum());
            return true;
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
            return true;
        default:
            return false;
    }
}
}  // namespace

Skinner::Skinner(GdiManager& manager) : QProxyStyle(QStringLiteral("fusion")), gdi(manager) {}

// --- taking a window over

void Skinner::skinWindow(QWidget& window)
{
    skinChild(window);
    for (QWidget* child : window.findChildren<QWidget*>()) skinChild(*child);
}

void Skinner::refresh(QWidget& window)
{
    polish(&window);
    for (QWidget* child : window.findChildren<QWidget*>())
        if (child->style() == this) polish(child);
}

void Skinner::skinChild(QWidget& child)
{
    child.setStyle(this);
    child.removeEventFilter(this);
    child.installEventFilter(this);
}

/// Controls made later are skinned once they are complete, and repainted when a property changes.
bool Skinner::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::ChildPolished) {
        QObject* child = static_cast<QChildEvent*>(event)->child();
        if (child->isWidgetType() && static_cast<QWidget*>(child)->style() != this)
            skinWindow(*static_cast<QWidget*>(child));
    }
    if (event->type() == QEvent::DynamicPropertyChange && object->isWidgetType()) polish(static_cast<QWidget*>(object));
    return flipSwitch(*object, *event) || QProxyStyle::eventFilter(object, event);
}

// --- colours and fonts

QColor Skinner::labelColour(const QWidget& widget) const
{
    if (isSet(widget, Property::GRAYTEXT) || isSet(widget, Property::DISABLED))
        return gdi.getColour(Role::labelDisabled);
    const QVariant own = widget.property(Property::COLOR);
    if (own.isValid() && qobject_cast<const QLabel*>(&widget) != nullptr)
        return gdi.getColour(static_cast<Role>(own.toInt()));
    return gdi.getColour(isSet(widget, Property::TEXT) ? Role::text : Role::label);
}

QPalette Skinner::paletteFor(const QWidget& widget) const
{
    const QVariant own = widget.property(Property::BKCOLOR);
    const QColor background = own.isValid() ? own.value<QColor>() : gdi.getColour(Role::background);
    QPalette palette;
    for (const auto role :
         {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button, QPalette::ToolTipBase})
        palette.setColor(role, background);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, labelColour(widget));
        palette.setColor(QPalette::Disabled, role, gdi.getColour(Role::labelDisabled));
    }
    palette.setColor(QPalette::PlaceholderText, gdi.getColour(Role::labelDisabled));
    const bool hasCells = qobject_cast<const QAbstractItemView*>(&widget) != nullptr;
    palette.setColor(QPalette::Highlight, gdi.getColour(hasCells ? Role::selectedCell : Role::selectedButton));
    palette.setColor(QPalette::HighlightedText,
                     hasCells ? gdi.getColour(Role::text) : Look::inkOn(gdi.getColour(Role::selectedButton)));
    return palette;
}

void Skinner::polish(QWidget* widget)
{
    if (isViewport(*widget)) return widget->update();
    widget->setPalette(paletteFor(*widget));
    const QVariant own = widget->property(Property::FONT);
    const FontRole usual = isPushButton(*widget) ? FontRole::font7 : FontRole::font9;
    widget->setFont(gdi.getFont(own.isValid() ? static_cast<FontRole>(own.toInt()) : usual));
    widget->update();
}

// --- marks

void Skinner::setGrayText(QWidget& control, bool on) { mark(control, Property::GRAYTEXT, on); }
void Skinner::setText(QWidget& control, bool on) { mark(control, Property::TEXT, on); }
void Skinner::setSelected(QWidget& control, bool on) { mark(control, Property::SELECTED, on); }
void Skinner::setNoWheel(QWidget& edit, bool on) { mark(edit, Property::NOWHEEL, on); }
void Skinner::showZeroAsBlank(QWidget& edit, bool on) { mark(edit, Property::SHOW_ZERO_AS_BLANK, on); }
void Skinner::setMin(QWidget& edit, int lowest) { edit.setProperty(Property::MIN, lowest); }
void Skinner::setMax(QWidget& edit, int highest) { edit.setProperty(Property::MAX, highest); }

void Skinner::setMinMax(QWidget& edit, int lowest, int highest)
{
    setMin(edit, lowest);
    setMax(edit, highest);
}

void Skinner::indicateInvalidValue(QWidget& control, bool invalid)
{
    setGrayText(control, invalid);
    auto* edit = qobject_cast<QLineEdit*>(&control);
    if (!invalid || edit == nullptr || isSet(*edit, Property::COMBO_BOX)) return;
    const QSignalBlocker quiet(edit);
    edit->clear();
}

void Skinner::enableControl(QWidget& label, QWidget& control, bool on)
{
    mark(label, Property::DISABLED, !on);
    control.setEnabled(on);
}
}  // namespace Gui
