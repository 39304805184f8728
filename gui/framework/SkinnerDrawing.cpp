#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>

#include "gui/framework/Look.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Skinner.h"

namespace Gui
{
namespace
{
constexpr int KNOB = 10;
constexpr int CHECK_MARK = 11;
constexpr int SCROLL_BAR = 13;
constexpr int MENU_EXTRA_WIDTH = 5;
constexpr int MENU_EXTRA_HEIGHT = 3;

bool isEnabled(const QStyleOption& option) { return (option.state & QStyle::State_Enabled) != 0; }
bool isOn(const QStyleOption& option) { return (option.state & (QStyle::State_On | QStyle::State_Sunken)) != 0; }
bool isSelected(const QStyleOption& option) { return (option.state & QStyle::State_Selected) != 0; }

/// The item of a menu at this rectangle, for its properties.
const QAction* itemAt(const QWidget* widget, const QRect& rectangle)
{
    const auto* menu = qobject_cast<const QMenu*>(widget);
    return menu == nullptr ? nullptr : menu->actionAt(rectangle.center());
}

bool isMarked(const QAction* item, const char* property) { return item != nullptr && Property::isSet(*item, property); }

GdiManager::Role inkOf(const QStyleOptionMenuItem& item, const QAction* action)
{
    using enum GdiManager::Role;
    if (!isEnabled(item) || isMarked(action, Property::GRAYTEXT)) return disabledButton;
    return item.checked ? selectedButton : unselectedButton;
}
}  // namespace

void Skinner::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    switch (element) {
        case PE_PanelLineEdit:
            painter->fillRect(option->rect, option->palette.base());
            Look::drawFrame(*painter, gdi, option->rect, isEnabled(*option));
            if (option->state.testFlag(State_HasFocus)) Look::drawFocus(*painter, gdi, option->rect);
            return;
        case PE_PanelTipLabel:
            painter->fillRect(option->rect, gdi.getColour(Role::background));
            return Look::drawFrame(*painter, gdi, option->rect, true);
        case PE_FrameLineEdit:
        case PE_Frame:
        case PE_FrameMenu:
            return Look::drawFrame(*painter, gdi, option->rect, isEnabled(*option));
        case PE_PanelMenu:
            return painter->fillRect(option->rect, gdi.getColour(Role::background));
        case PE_PanelItemViewItem:
        case PE_PanelItemViewRow:
            return drawItemPanel(*painter, *option);
        case PE_IndicatorCheckBox:
        case PE_IndicatorItemViewItemCheck:
            return drawCheckMark(*painter, *option);
        case PE_IndicatorRadioButton:
            return drawRadioMark(*painter, *option);
        case PE_FrameFocusRect:
            return Look::drawFocus(*painter, gdi, option->rect);
        default:
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Skinner::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const
{
    switch (element) {
        case CE_PushButton:
            if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option))
                return drawPushButton(*painter, *option, button->text, widget);
            break;
        case CE_MenuItem:
            return drawMenuItem(*painter, *option, widget);
        case CE_MenuEmptyArea:
            return painter->fillRect(option->rect, gdi.getColour(Role::background));
        case CE_HeaderSection:
        case CE_HeaderEmptyArea:
            return drawHeader(*painter, *option);
        default:
            break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Skinner::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                 const QWidget* widget) const
{
    if (control == CC_Slider) return drawSlider(*painter, *option);
    if (control == CC_ScrollBar) return drawScrollBar(*painter, *option, widget);
    if (control == CC_ComboBox) return drawComboBox(*painter, *option, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

// --- buttons and marks

void Skinner::drawPushButton(QPainter& painter, const QStyleOption& option, const QString& text,
                             const QWidget* widget) const
{
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    Look::drawButton(painter, gdi, option.rect,
                     {text, isEnabled(option), isOn(option), button != nullptr && button->isCheckable()}, widget);
    if ((option.state & State_HasFocus) != 0) Look::drawFocus(painter, gdi, option.rect);
}

void Skinner::drawCheckMark(QPainter& painter, const QStyleOption& option) const
{
    Look::drawFrame(painter, gdi, option.rect, isEnabled(option));
    if ((option.state & State_On) == 0) return;
    const int gap = gdi.px(3);
    painter.fillRect(option.rect.adjusted(gap, gap, -gap, -gap),
                     gdi.getColour(isEnabled(option) ? Role::selectedButton : Role::disabledButton));
}

void Skinner::drawRadioMark(QPainter& painter, const QStyleOption& option) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(gdi.getColour(isEnabled(option) ? Role::controlBorder : Role::controlBorderDisabled));
    painter.drawEllipse(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
    if ((option.state & State_On) != 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(gdi.getColour(isEnabled(option) ? Role::selectedButton : Role::disabledButton));
        painter.drawEllipse(QRectF(option.rect).marginsRemoved(QMarginsF(3, 3, 3, 3) * gdi.getScale()));
    }
    painter.restore();
}

// --- lists and tables

void Skinner::drawItemPanel(QPainter& painter, const QStyleOption& option) const
{
    if (isSelected(option)) painter.fillRect(option.rect, gdi.getColour(Role::selectedCell));
}

void Skinner::drawHeader(QPainter& painter, const QStyleOption& option) const
{
    painter.fillRect(option.rect, gdi.getColour(Role::background));
    Look::drawFrame(painter, gdi, option.rect, isEnabled(option));
}

// --- menus

void Skinner::drawMenuSeparator(QPainter& painter, const QRect& rectangle) const
{
    painter.fillRect(rectangle, gdi.getColour(Role::background));
    painter.setPen(gdi.getColour(Role::controlBorder));
    painter.drawLine(rectangle.left(), rectangle.center().y(), rectangle.right(), rectangle.center().y());
}

void Skinner::drawMenuItem(QPainter& painter, const QStyleOption& option, const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
    if (item == nullptr) return;
    if (item->menuItemType == QStyleOptionMenuItem::Separator) return drawMenuSeparator(painter, option.rect);

    const QAction* action = itemAt(widget, option.rect);
    const bool pointed = isSelected(option) && isEnabled(option);
    const bool current = isMarked(action, Property::SELECTED);
    const QColor fill = gdi.getColour(current ? Role::selectedButton : pointed ? Role::selectedCell : Role::background);
    painter.fillRect(option.rect, fill);
    if (current && pointed) Look::drawFocus(painter, gdi, option.rect);

    const QVariant own = action == nullptr ? QVariant() : action->property(Property::COLOR);
    QColor ink = own.isValid() ? own.value<QColor>() : gdi.getColour(inkOf(*item, action));
    if (pointed) ink = gdi.getColour(Role::text);
    if (current) ink = Look::inkOn(fill);
    painter.setPen(ink);
    painter.setFont(item->font);
    const QRect place = option.rect.adjusted(gdi.px(MENUGAP), 0, -gdi.px(MENUGAP), 0);
    painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine | Qt::TextShowMnemonic, item->text);
    if (item->menuItemType == QStyleOptionMenuItem::SubMenu) {
        const int side = place.height() / 2;
        const QRectF arrow(place.right() - side, place.top(), side, place.height());
        Look::drawTriangle(painter, arrow, Look::Direction::right, ink);
    }
}

// --- sliders, scroll bars, combo boxes

/// A thin channel and a disc.
void Skinner::drawSlider(QPainter& painter, const QStyleOptionComplex& option) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (slider == nullptr) return;
    const qreal span = static_cast<qreal>(slider->maximum) - slider->minimum;
    qreal fraction = span > 0 ? (static_cast<qreal>(slider->sliderPosition) - slider->minimum) / span : 0;
    // Positions count from the top and from the left.
    if (slider->upsideDown != (slider->orientation == Qt::Vertical)) fraction = 1 - fraction;
    Look::drawFader(painter, gdi, option.rect, {slider->orientation, fraction, gdi.px(KNOB), isEnabled(option)});
    if (option.state.testFlag(State_HasFocus)) Look::drawFocus(painter, gdi, option.rect);
}

void Skinner::drawScrollBar(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (bar == nullptr) return;
    const auto place = [&](SubControl part) { return proxy()->subControlRect(CC_ScrollBar, &option, part, widget); };
    const bool upright = bar->orientation == Qt::Vertical;
    const QColor colour = gdi.getColour(isEnabled(option) ? Role::unselectedButton : Role::disabledButton);
    const auto held = [&](SubControl part) {
        return bar->activeSubControls == part && (option.state & State_Sunken) != 0
                   ? gdi.getColour(Role::selectedButton)
                   : colour;
    };
    using Look::Direction;
    painter.fillRect(option.rect, gdi.getColour(Role::background));
    Look::drawFrame(painter, gdi, option.rect, isEnabled(option));
    painter.fillRect(place(SC_ScrollBarSlider).adjusted(2, 2, -2, -2), held(SC_ScrollBarSlider));
    Look::drawTriangle(painter, QRectF(place(SC_ScrollBarSubLine)).adjusted(3, 3, -3, -3),
                       upright ? Direction::up : Direction::left, held(SC_ScrollBarSubLine));
    Look::drawTriangle(painter, QRectF(place(SC_ScrollBarAddLine)).adjusted(3, 3, -3, -3),
                       upright ? Direction::down : Direction::right, held(SC_ScrollBarAddLine));
}

void Skinner::drawComboBox(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const
{
    painter.fillRect(option.rect, gdi.getColour(Role::background));
    Look::drawFrame(painter, gdi, option.rect, isEnabled(option));
    const QRectF arrow = proxy()->subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, widget);
    Look::drawTriangle(painter, arrow.adjusted(4, 4, -4, -4), Look::Direction::down,
                       gdi.getColour(isEnabled(option) ? Role::label : Role::labelDisabled));
}

// --- measures

QSize Skinner::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                const QWidget* widget) const
{
    if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        type == CT_MenuItem && item != nullptr && item->menuItemType != QStyleOptionMenuItem::Separator) {
        const QSize text = QFontMetrics(item->font).size(Qt::TextSingleLine | Qt::TextShowMnemonic, item->text);
        const int arrow = item->menuItemType == QStyleOptionMenuItem::SubMenu ? text.height() : 0;
        return {text.width() + gdi.px(MENU_EXTRA_WIDTH) + 2 * gdi.px(MENUGAP) + arrow,
                text.height() + gdi.px(MENU_EXTRA_HEIGHT)};
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
            return gdi.px(CHECK_MARK);
        case PM_SliderLength:
        case PM_SliderThickness:
        case PM_SliderControlThickness:
            return gdi.px(KNOB + 1);
        case PM_ScrollBarExtent:
            return gdi.px(SCROLL_BAR);
        case PM_MenuPanelWidth:
            return 1;  // its frame
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
    if (hint == SH_Menu_KeyboardSearch) return 1;
    if (hint == SH_EtchDisabledText || hint == SH_DitherDisabledText) return 0;
    if (hint == SH_Table_GridLineColor) return static_cast<int>(gdi.getColour(Role::unusedButton).rgba());
    return QProxyStyle::styleHint(hint, option, widget, answer);
}
}  // namespace Gui
