#include "gui/framework/ComboBox.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <chrono>

#include "api/GuiContext.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/KeyForwarding.h"
#include "gui/framework/Look.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"

namespace Gui
{
using Role = GdiManager::Role;

namespace
{
constexpr int ARROW_WIDTH = 14;
// The click that closes a menu can reach the control a moment after the menu has closed.
constexpr std::chrono::milliseconds CLOSING_CLICK{100};

const QString& displayOf(const ComboBox::Entry& entry)
{
    return entry.displayText.isEmpty() ? entry.text : entry.displayText;
}
}  // namespace

ComboBox::ComboBox(GuiContext& context, Typing typing, QWidget* parent)
    : EditBox(parent), guiContext(context), menu(new PopupMenu(this))
{
    setProperty(Property::COMBO_BOX, true);
    if (typing == Typing::readOnly) {
        setReadOnly(true);
        setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
        setCursor(Qt::ArrowCursor);
    }
    setMouseTracking(true);
    connect(this, &QLineEdit::textEdited, this, &ComboBox::typed);
    connect(menu, &QMenu::aboutToHide, &menuGone, qOverload<>(&QTimer::start));
    menuGone.setSingleShot(true);
    menuGone.setInterval(CLOSING_CLICK);
    connect(&menuGone, &QTimer::timeout, this, [this] { menuShowing = false; });
    menu->onChosen = [this](int index) {
        menuShowing = false;
        choose(index);
        if (!isReadOnly()) clearFocus();  // the choice ends typing
    };
}

// --- entries

void ComboBox::setEntries(std::vector<Entry> newEntries)
{
    entries = std::move(newEntries);
    setSelectedIndex(-1);
}

void ComboBox::addEntry(Entry entry) { entries.push_back(std::move(entry)); }

void ComboBox::setSelectedIndex(int index)
{
    const bool exists = index >= 0 && index < std::ssize(entries);
    selectedIndex = exists ? index : -1;
    const QSignalBlocker quiet(this);
    setText(exists ? displayOf(entries[static_cast<std::size_t>(index)]) : QString());
    home(false);
    accessibleValueChanged(*this, text());
}

void ComboBox::typed(const QString& text)
{
    const auto entry = std::ranges::find(entries, text, displayOf);
    selectedIndex = entry == entries.end() ? -1 : static_cast<int>(entry - entries.begin());
}

/// Makes a choice of the user, if it is valid, and reports it.
void ComboBox::choose(int index)
{
    if (onValidate && onValidate(index)) return;
    setSelectedIndex(index);
    if (onChange) onChange(index);
}

/// Chooses the next enabled entry in this direction, if there is one.
void ComboBox::stepEntry(int direction)
{
    for (int index = selectedIndex + direction; index >= 0 && index < std::ssize(entries); index += direction)
        if (entries[static_cast<std::size_t>(index)].enabled) return choose(index);
}

// --- the menu

void ComboBox::openMenu()
{
    if (entries.empty()) return;
    menu->clear();
    for (const Entry& entry : entries) menu->addItem({.text = entry.text, .enabled = entry.enabled});
    menu->setSelected(selectedIndex);
    menu->setMinimumWidth(width());
    menuGone.stop();
    menuShowing = true;
    menu->showBelow(*this);
}

QRect ComboBox::arrow() const
{
    const int wide = guiContext.getGdiManager().px(ARROW_WIDTH);
    return {width() - wide, 0, wide, height()};
}

void ComboBox::resizeEvent(QResizeEvent* event)
{
    setTextMargins(1, 0, arrow().width(), 0);
    EditBox::resizeEvent(event);
}

bool ComboBox::opensMenu(const QMouseEvent& event) const
{
    return isReadOnly() || arrow().contains(event.position().toPoint());
}

void ComboBox::mousePressEvent(QMouseEvent* event)
{
    if (!opensMenu(*event)) return QLineEdit::mousePressEvent(event);
    if (event->button() != Qt::LeftButton) return event->ignore();
    if (!menuShowing) return openMenu();
    menu->close();
    menuGone.stop();
    menuShowing = false;
}

void ComboBox::mouseMoveEvent(QMouseEvent* event)
{
    if (isReadOnly()) return event->accept();
    if (event->buttons() == Qt::NoButton) setCursor(opensMenu(*event) ? Qt::ArrowCursor : Qt::IBeamCursor);
    QLineEdit::mouseMoveEvent(event);
}

void ComboBox::mouseReleaseEvent(QMouseEvent* event)
{
    if (isReadOnly()) return event->accept();
    QLineEdit::mouseReleaseEvent(event);
}

void ComboBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (opensMenu(*event)) return mousePressEvent(event);
    QLineEdit::mouseDoubleClickEvent(event);
}

void ComboBox::contextMenuEvent(QContextMenuEvent* event) { event->ignore(); }

// --- wheel and keys

void ComboBox::wheelEvent(QWheelEvent* event)
{
    if (Property::isSet(*this, Property::NOWHEEL)) return event->ignore();
    const int notches = wheel.takeNotches(*event);
    for (int i = 0; i < std::abs(notches); ++i) stepEntry(notches > 0 ? -1 : 1);
    event->accept();
}

bool ComboBox::handleKey(const QKeyEvent& event)
{
    switch (event.key()) {
        case Qt::Key_Up:
            return stepEntry(-1), true;
        case Qt::Key_Down:
            if (event.modifiers().testFlag(Qt::AltModifier))
                openMenu();
            else
                stepEntry(1);
            return true;
        case Qt::Key_F4:
            return openMenu(), true;
        case Qt::Key_Space:
            if (isReadOnly()) openMenu();
            return isReadOnly();
        default:
            return false;
    }
}

void ComboBox::keyPressEvent(QKeyEvent* event)
{
    if (handleKey(*event)) return;
    if (!isReadOnly()) return EditBox::keyPressEvent(event);
    event->setAccepted(forwardToParent(*this, *event));
}

void ComboBox::keyReleaseEvent(QKeyEvent* event)
{
    if (isReadOnly())
        forwardToParent(*this, *event);
    else
        EditBox::keyReleaseEvent(event);
}

// --- the look

QSize ComboBox::sizeHint() const
{
    int widest = 0;
    for (const Entry& entry : entries) widest = std::max(widest, fontMetrics().horizontalAdvance(displayOf(entry)));
    return {widest + guiContext.getGdiManager().px(ARROW_WIDTH) + 6, EditBox::sizeHint().height()};
}

void ComboBox::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    const GdiManager& gdi = guiContext.getGdiManager();
    Look::drawTriangle(painter, arrow().adjusted(3, 0, -3, 0), Look::Direction::down,
                       gdi.getColour(isEnabled() ? Role::label : Role::labelDisabled));
    if (hasFocus() && isReadOnly()) Look::drawFocus(painter, gdi, rect());
}
}  // namespace Gui
