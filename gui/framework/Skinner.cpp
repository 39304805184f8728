#include "gui/framework/Skinner.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QChildEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>

#include "gui/framework/Properties.h"

namespace Gui
{
namespace
{
constexpr int KNOB = 10;
constexpr int CHECK_MARK = 11;
constexpr int SMALL_WIDTH = 11;
constexpr int SMALL_HEIGHT = 16;
constexpr int MENU_EXTRA_WIDTH = 5;
constexpr int MENU_EXTRA_HEIGHT = 3;

bool isEnabled(const QStyleOption& option) { return (option.state & QStyle::State_Enabled) != 0; }
bool isOn(const QStyleOption& option) { return (option.state & (QStyle::State_On | QStyle::State_Sunken)) != 0; }
bool isMarked(const QWidget* widget, const char* property)
{
    return widget != nullptr && Property::isSet(*widget, property);
}

void mark(QWidget& control, const char* property, bool on)
{
    Property::set(control, property, on);
    control.update();
}
}  // namespace

Skinner::Skinner(GdiManager& manager) : QProxyStyle(QStringLiteral("fusion")), gdi(manager) {}

// --- taking a window over

void Skinner::skinWindow(QWidget& window)
{
    skinChild(window);
    for (QWidget* child : window.findChildren<QWidget*>()) skinChild(*child);
}

void Skinner::skinChild(QWidget& child)
{
    child.setStyle(this);
    child.removeEventFilter(this);
    child.installEventFilter(this);
}

/// What is made in a skinned window later is skinned when it is complete, and draws itself anew when it is marked.
bool Skinner::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::ChildPolished) {
        QObject* child = static_cast<QChildEvent*>(event)->child();
        if (child->isWidgetType() && static_cast<QWidget*>(child)->style() != this)
            skinWindow(*static_cast<QWidget*>(child));
    }
    if (event->type() == QEvent::DynamicPropertyChange && object->isWidgetType()) polish(static_cast<QWidget*>(object));
    return QProxyStyle::eventFilter(object, event);
}

QColor Skinner::labelColour(const QWidget& widget) const
{
    if (Property::isSet(widget, Property::GRAYTEXT) || Property::isSet(widget, Property::DISABLED) ||
        !widget.isEnabled())
        return gdi.getColour(Role::labelDisabled);
    return gdi.getColour(Property::isSet(widget, Property::TEXT) ? Role::text : Role::label);
}

void Skinner::polish(QWidget* widget)
{
    QPalette palette = widget->palette();
    const QVariant own = widget->property(Property::BKCOLOR);
    const QColor background = own.isValid() ? own.value<QColor>() : gdi.getColour(Role::background);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) palette.setColor(role, background);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, labelColour(*widget));
    palette.setColor(QPalette::Highlight, gdi.getColour(Role::selectedButton));
    palette.setColor(QPalette::HighlightedText, gdi.getColour(Role::background));
    widget->setPalette(palette);
    if (qobject_cast<QMenu*>(widget) == nullptr) widget->setFont(gdi.getFont(GdiManager::FontRole::font9));
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

void Skinner::enableControl(QWidget& label, QWidget& control, bool on)
{
    mark(label, Property::DISABLED, !on);
    control.setEnabled(on);
}

// --- drawing

void Skinner::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    switch (element) {
        case PE_PanelLineEdit:
            painter->fillRect(option->rect, option->palette.base());
            return drawFrame(*painter, option->rect, isEnabled(*option));
        case PE_FrameLineEdit:
        case PE_Frame:
        case PE_FrameMenu:
            return drawFrame(*painter, option->rect, isEnabled(*option));
        case PE_PanelMenu:
            return painter->fillRect(option->rect, gdi.getBrush(Role::background).getHandle());
        case PE_IndicatorCheckBox:
            return drawCheckMark(*painter, *option);
        case PE_IndicatorRadioButton:
            return drawRadioMark(*painter, *option);
        case PE_FrameFocusRect:
            painter->setPen(QPen(gdi.getColour(Role::text), 1, Qt::DotLine));
            return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        default:
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Skinner::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const
{
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option); element == CE_PushButton && button)
        return drawButton(*painter, *option, button->text, widget);
    if (element == CE_MenuItem) return drawMenuItem(*painter, *option);
    if (element == CE_MenuEmptyArea) return painter->fillRect(option->rect, gdi.getBrush(Role::background).getHandle());
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Skinner::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                 const QWidget* widget) const
{
    if (control == CC_Slider) return drawSlider(*painter, *option);
    if (control == CC_ComboBox) return drawComboBox(*painter, *option, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void Skinner::drawFrame(QPainter& painter, const QRect& rectangle, bool enabled) const
{
    painter.setPen(gdi.getColour(enabled ? Role::controlBorder : Role::controlBorderDisabled));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rectangle.adjusted(0, 0, -1, -1));
}

void Skinner::drawButton(QPainter& painter, const QStyleOption& option, const QString& text,
                         const QWidget* widget) const
{
    const QVariant own = widget == nullptr ? QVariant() : widget->property(Property::COLOR);
    QColor fill = gdi.getColour(isOn(option) ? Role::selectedButton : Role::unselectedButton);
    if (own.isValid()) fill = own.value<QColor>();
    if (!isEnabled(option)) fill = gdi.getColour(Role::disabledButton);
    if (isMarked(widget, Property::GRAYTEXT)) {
        painter.fillRect(option.rect, gdi.getBrush(Role::unselectedButton).getHandle());
        painter.fillRect(option.rect, QBrush(gdi.getColour(Role::selectedButton), Qt::Dense4Pattern));
    } else {
        painter.fillRect(option.rect, fill);
    }

    QColor ink = gdi.getColour(Role::background);
    if (isMarked(widget, Property::SELECTED)) ink = gdi.getColour(Role::selectedButton);
    painter.setPen(ink);
    using Font = GdiManager::FontRole;
    const bool isSmall = option.rect.height() < SMALL_HEIGHT || option.rect.width() < SMALL_WIDTH;
    const bool isSign = text == QLatin1String("+") || text == QLatin1String("-");
    painter.setFont(gdi.getFont(!isSmall ? Font::font7 : isSign ? Font::font5 : Font::font3));
    painter.drawText(option.rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, text);
    if ((option.state & State_HasFocus) != 0) {
        painter.setPen(QPen(gdi.getColour(Role::text), 1, Qt::DotLine));
        painter.drawRect(option.rect.adjusted(1, 1, -2, -2));
    }
}

void Skinner::drawCheckMark(QPainter& painter, const QStyleOption& option) const
{
    drawFrame(painter, option.rect, isEnabled(option));
    if ((option.state & State_On) == 0) return;
    painter.fillRect(option.rect.adjusted(3, 3, -3, -3), gdi.getBrush(Role::selectedButton).getHandle());
}

void Skinner::drawRadioMark(QPainter& painter, const QStyleOption& option) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(gdi.getColour(isEnabled(option) ? Role::controlBorder : Role::controlBorderDisabled));
    painter.drawEllipse(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
    if ((option.state & State_On) != 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(gdi.getBrush(Role::selectedButton).getHandle());
        painter.drawEllipse(QRectF(option.rect).adjusted(3, 3, -3, -3));
    }
    painter.restore();
}

void Skinner::drawMenuItem(QPainter& painter, const QStyleOption& option) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
    if (item == nullptr) return;
    const bool pointed = (option.state & State_Selected) != 0 && isEnabled(option);
    painter.fillRect(option.rect, gdi.getColour(pointed ? Role::selectedCell : Role::background));
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        painter.setPen(gdi.getColour(Role::controlBorder));
        return painter.drawLine(option.rect.left(), option.rect.center().y(), option.rect.right(),
                                option.rect.center().y());
    }
    const Role ink = !isEnabled(option) ? Role::disabledButton
                     : item->checked    ? Role::selectedButton
                                        : Role::unselectedButton;
    painter.setPen(gdi.getColour(ink));
    painter.setFont(item->font);
    const QRect place = option.rect.adjusted(MENUGAP, 0, -MENUGAP, 0);
    painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine | Qt::TextShowMnemonic, item->text);
    if (item->menuItemType == QStyleOptionMenuItem::SubMenu)
        painter.drawText(place, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine, QStringLiteral("\u203A"));
}

/// A thin channel and a disc.
void Skinner::drawSlider(QPainter& painter, const QStyleOptionComplex& option) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (slider == nullptr) return;
    const QRect all = option.rect;
    painter.fillRect(all, gdi.getBrush(Role::background).getHandle());
    const bool vertical = slider->orientation == Qt::Vertical;
    const int length = (vertical ? all.height() : all.width()) - KNOB - 1;
    const int along =
        sliderPositionFromValue(slider->minimum, slider->maximum, slider->sliderPosition, length, slider->upsideDown);
    painter.setPen(gdi.getColour(isEnabled(option) ? Role::controlBorder : Role::controlBorderDisabled));
    if (vertical)
        painter.drawLine(all.center().x(), all.top(), all.center().x(), all.bottom());
    else
        painter.drawLine(all.left(), all.center().y(), all.right(), all.center().y());
    const auto foreground = gdi.getBrush(isEnabled(option) ? Role::selectedButton : Role::disabledButton).getColour();
    const auto& knob = gdi.getKnob(foreground, gdi.getBrush(Role::background).getColour(), GdiManager::Edge::smooth,
                                   KNOB, painter.device()->devicePixelRatioF());
    const QPoint place = vertical ? QPoint(all.center().x() - KNOB / 2, all.top() + along)
                                  : QPoint(all.left() + along, all.center().y() - KNOB / 2);
    painter.drawPixmap(place, knob.getHandle());
}

void Skinner::drawComboBox(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const
{
    painter.fillRect(option.rect, gdi.getBrush(Role::background).getHandle());
    drawFrame(painter, option.rect, isEnabled(option));
    const QRect arrow = subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, widget);
    const QPointF middle = QRectF(arrow).center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gdi.getColour(isEnabled(option) ? Role::label : Role::labelDisabled));
    painter.drawPolygon(QPolygonF{{middle + QPointF(-4, -2), middle + QPointF(4, -2), middle + QPointF(0, 3)}});
    painter.restore();
}

QSize Skinner::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                const QWidget* widget) const
{
    if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        type == CT_MenuItem && item != nullptr && item->menuItemType != QStyleOptionMenuItem::Separator) {
        const QFontMetrics metrics(item->font);
        return {metrics.horizontalAdvance(item->text) + MENU_EXTRA_WIDTH + 2 * MENUGAP,
                metrics.height() + MENU_EXTRA_HEIGHT};
    }
    return QProxyStyle::sizeFromContents(type, option, contents, widget);
}

int Skinner::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return CHECK_MARK;
        case PM_SliderLength:
        case PM_SliderThickness:
        case PM_SliderControlThickness:
            return KNOB + 1;
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
            return 0;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Skinner::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                       QStyleHintReturn* answer) const
{
    if (hint == SH_EtchDisabledText || hint == SH_DitherDisabledText) return 0;
    return QProxyStyle::styleHint(hint, option, widget, answer);
}
}  // namespace Gui
