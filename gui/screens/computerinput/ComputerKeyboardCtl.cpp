#include "gui/screens/computerinput/ComputerKeyboardCtl.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "api/OrvGuiIF.h"
#include "backend/values/Note.h"
#include "gui/forms/FunctionCaption.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/Look.h"
#include "gui/framework/Properties.h"
#include "gui/keyboard/KeyPresses.h"
#include "gui/screens/computerinput/KeyRecords.h"
#include "gui/screens/computerinput/KeyboardPlan.h"

namespace Gui::ComputerInput
{
using Backend::ComputerInput::KeyConfiguration;
using Forms::Selection;
namespace FunctionCaption = Forms::FunctionCaption;
using Role = GdiManager::Role;
using FontRole = GdiManager::FontRole;
using Source = KeyPresses::Source;

namespace
{
constexpr double UNIT_WIDTH = 42;  // logical pixels
constexpr double UNIT_HEIGHT = 38;
constexpr double GAP = 3;

const PlannedKey* findPlanned(int keyCode)
{
    const auto all = KeyboardPlan::getKeys();
    const auto found = std::ranges::find(all, keyCode, &PlannedKey::code);
    return found == all.end() ? nullptr : &*found;
}

bool isBlackKey(int note)
{
    return Backend::MidiEngine::getNoteName(note, Backend::MidiEngine::Octave::without).size() > 1;
}
}  // namespace

ComputerKeyboardCtl::ComputerKeyboardCtl(OrvGuiIF& owner, KeyRecords& shownRecords, Forms::RecordEditor& recordEditor,
                                         const Backend::Zones::ZoneMap& playedZones, QWidget* parent)
    : QWidget(parent), gui(owner), records(shownRecords), editor(recordEditor), zones(playedZones)
{
    setAccessibleName(tr("Computer keyboard"));
    setFocusPolicy(Qt::TabFocus);
    Property::setHelp(*this, tr("What each key does; point at one to read it. The arrow keys go from key to key, Enter "
                                "edits, Delete clears."));
    editor.observe(*this, [this] { selectionChanged(); });
    setMouseTracking(true);
    rescale();
}

void ComputerKeyboardCtl::rescale()
{
    const GdiManager& gdi = gui.getGdiManager();
    setFixedSize(gdi.px(KeyboardPlan::WIDTH * UNIT_WIDTH), gdi.px(KeyboardPlan::HEIGHT * UNIT_HEIGHT));
    update();
}

// --- what is down

void ComputerKeyboardCtl::showKeyDown(int keyCode)
{
    if (findPlanned(keyCode) != nullptr && down.insert(keyCode).second) changed();
}

void ComputerKeyboardCtl::showKeyUp(int keyCode)
{
    if (down.erase(keyCode) > 0) changed();
}

void ComputerKeyboardCtl::clearHilight()
{
    if (down.empty()) return;
    down.clear();
    changed();
}

void ComputerKeyboardCtl::changed()
{
    held = Key();
    for (const int code : down)
        if (bool Key::*const modifier = modifierOf(code)) held.*modifier = true;
    update();
    accessibleValueChanged(*this, getAccessibleValue());
}

void ComputerKeyboardCtl::showConfigurations()
{
    helpedKey = -1;
    update();
}

/// The keys that are down; while it has the focus and there are none, the current one and what it does.
QString ComputerKeyboardCtl::getAccessibleValue() const
{
    const auto current = editor.getSelection().getCurrent();
    if (down.empty() && hasFocus() && current) return records.describe(*current);
    QStringList names;
    for (const int code : down) names << KeyRecords::textOf(Key{.keyCode = code});
    return names.join(QStringLiteral(", "));
}

// --- what a key does

bool ComputerKeyboardCtl::isEditing() const { return editor.isOpen(); }

Key ComputerKeyboardCtl::keyOf(int keyCode) const
{
    return KeyRecords::withModifiers(keyCode, isEditing() ? records.getModifiers() : held);
}

const KeyConfiguration* ComputerKeyboardCtl::findConfiguration(int keyCode) const
{
    const KeyConfiguration* const found = records.getKeys().findElement(keyOf(keyCode));
    return found == nullptr || found->isEmpty() ? nullptr : found;
}

QString ComputerKeyboardCtl::getCaption(int keyCode) const
{
    const KeyConfiguration* const configuration = findConfiguration(keyCode);
    return configuration == nullptr ? QString() : FunctionCaption::captionOf(*configuration, zones);
}

QString ComputerKeyboardCtl::getHelp(int keyCode) const
{
    const KeyConfiguration* const configuration = findConfiguration(keyCode);
    const bool isLeft = configuration != nullptr && !configuration->global;
    return records.describe(KeyRecords::idOf(keyOf(keyCode))) +
           (isLeft ? tr("\nOther programs keep this key.") : QString());
}

ComputerKeyboardCtl::Look ComputerKeyboardCtl::lookOf(int keyCode) const
{
    const GdiManager& gdi = gui.getGdiManager();
    if (down.contains(keyCode)) return filled(Role::selectedButton);
    const KeyConfiguration* const configuration = findConfiguration(keyCode);
    if (configuration == nullptr)
        return {gdi.getColour(Role::background), gdi.getColour(Role::label), gdi.getColour(Role::label)};
    const auto [note, zone] = FunctionCaption::firstNoteOf(*configuration, zones);
    if (note < 0) return {gdi.getColour(Role::selectedCell), gdi.getColour(Role::text), gdi.getColour(Role::text)};
    const bool isOtherZone = zone > 0 && zone % 2 != 0;
    if (isBlackKey(note)) return filled(isOtherZone ? Role::greenPen : Role::unusedButton);
    return filled(isOtherZone ? Role::text : Role::unselectedButton);
}

ComputerKeyboardCtl::Look ComputerKeyboardCtl::filled(Role fill) const
{
    const QColor colour = gui.getGdiManager().getColour(fill);
    const QColor ink = Gui::Look::inkOn(colour);
    return {colour, ink, ink};
}

// --- the picture

/// Whole pixels, so that every frame is sharp.
QRect ComputerKeyboardCtl::rectOf(const PlannedKey& key) const
{
    const GdiManager& gdi = gui.getGdiManager();
    const QPoint corner(gdi.px(key.x * UNIT_WIDTH), gdi.px(key.y * UNIT_HEIGHT));
    const QPoint end(gdi.px((key.x + key.width) * UNIT_WIDTH - GAP), gdi.px((key.y + key.height) * UNIT_HEIGHT - GAP));
    return {corner, end - QPoint(1, 1)};
}

QPoint ComputerKeyboardCtl::getPlace(int keyCode) const
{
    const PlannedKey* const key = findPlanned(keyCode);
    return key == nullptr ? QPoint(-1, -1) : rectOf(*key).center();
}

const PlannedKey* ComputerKeyboardCtl::keyAt(QPointF place) const
{
    const auto all = KeyboardPlan::getKeys();
    const auto found =
        std::ranges::find_if(all, [&](const PlannedKey& key) { return rectOf(key).contains(place.toPoint()); });
    return found == all.end() ? nullptr : &*found;
}

void ComputerKeyboardCtl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const PlannedKey& key : KeyboardPlan::getKeys()) paintKey(painter, key);
}

void ComputerKeyboardCtl::paintKey(QPainter& painter, const PlannedKey& key) const
{
    constexpr qreal CORNER = 3;
    const GdiManager& gdi = gui.getGdiManager();
    const Look look = lookOf(key.code);
    const QRectF place = rectOf(key);
    painter.setPen(QPen(gdi.getColour(Role::controlBorder), 1));
    painter.setBrush(look.fill);
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), gdi.px(CORNER), gdi.px(CORNER));

    const QRectF inside = place.adjusted(gdi.px(4), gdi.px(2), -gdi.px(2), -gdi.px(2));
    painter.setPen(look.label);
    const QString label = labels.get(key);
    painter.setFont(gdi.getFont(FontRole::font9));
    if (painter.fontMetrics().horizontalAdvance(label) > inside.width()) painter.setFont(gdi.getFont(FontRole::font3));
    painter.drawText(inside, Qt::AlignTop | Qt::AlignLeft | Qt::TextSingleLine, label);
    painter.setPen(look.caption);
    painter.setFont(gdi.getFont(FontRole::font9));
    if (painter.fontMetrics().horizontalAdvance(getCaption(key.code)) > inside.width())
        painter.setFont(gdi.getFont(FontRole::font3));
    const QString caption =
        painter.fontMetrics().elidedText(getCaption(key.code), Qt::ElideRight, static_cast<int>(inside.width()) + 1);
    painter.drawText(inside, Qt::AlignBottom | Qt::AlignLeft | Qt::TextSingleLine, caption);
    paintMarks(painter, key);
}

/// A selected key has a frame, the current one the ring of the focus around it.
void ComputerKeyboardCtl::paintMarks(QPainter& painter, const PlannedKey& key) const
{
    const GdiManager& gdi = gui.getGdiManager();
    const Selection& selection = editor.getSelection();
    const auto id = KeyRecords::idOf(keyOf(key.code));
    if (selection.isSelected(id)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(gdi.getColour(Role::frame), gdi.px(2)));
        painter.drawRect(rectOf(key).adjusted(gdi.px(2), gdi.px(2), -gdi.px(2), -gdi.px(2)));
    }
    if (hasFocus() && selection.isCurrent(id)) Gui::Look::drawFocus(painter, gdi, rectOf(key));
}

// --- the mouse

void ComputerKeyboardCtl::mousePressEvent(QMouseEvent* event)
{
    const PlannedKey* const key = keyAt(event->position());
    if (event->button() != Qt::LeftButton || key == nullptr) return;
    if (isEditing()) return editor.getSelection().click(KeyRecords::idOf(keyOf(key->code)), event->modifiers());
    releaseKeys();
    const auto modifiers = event->modifiers();
    gui.getKeyPresses().press(Source::picture, {.keyCode = key->code,
                                                .shift = modifiers.testFlag(Qt::ShiftModifier),
                                                .control = modifiers.testFlag(Qt::ControlModifier),
                                                .alt = modifiers.testFlag(Qt::AltModifier),
                                                .win = modifiers.testFlag(Qt::MetaModifier)});
}

void ComputerKeyboardCtl::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    const auto modifiers = event->modifiers();
    for (const int code : gui.getKeyPresses().getCodesDown(Source::picture))
        gui.getKeyPresses().release(Source::picture, {.keyCode = code,
                                                      .shift = modifiers.testFlag(Qt::ShiftModifier),
                                                      .control = modifiers.testFlag(Qt::ControlModifier),
                                                      .alt = modifiers.testFlag(Qt::AltModifier),
                                                      .win = modifiers.testFlag(Qt::MetaModifier)});
}

/// Opens the settings of the key, and then the menu of the section.
void ComputerKeyboardCtl::contextMenuEvent(QContextMenuEvent* event)
{
    if (const PlannedKey* const key = keyAt(event->pos()))
        editor.getSelection().clickForMenu(
            KeyRecords::idOf(KeyRecords::withModifiers(key->code, records.getModifiers())));
    isEditing() ? editor.showMenu(*this, event->globalPos()) : editor.setOpen(true);
}

void ComputerKeyboardCtl::releaseKeys() { gui.getKeyPresses().releaseAll(Source::picture); }

void ComputerKeyboardCtl::mouseMoveEvent(QMouseEvent* event) { showHelp(keyAt(event->position())); }

void ComputerKeyboardCtl::showHelp(const PlannedKey* key)
{
    const int code = key == nullptr ? -1 : key->code;
    if (code == helpedKey) return;
    helpedKey = code;
    if (code >= 0) gui.displayHelp(getHelp(code).toStdString());
}

// --- the selection

void ComputerKeyboardCtl::selectionChanged()
{
    if (isEditing()) releaseKeys();
    showConfigurations();
    if (hasFocus()) accessibleValueChanged(*this, getAccessibleValue());
}

void ComputerKeyboardCtl::keyPressEvent(QKeyEvent* event)
{
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    Selection& selection = editor.getSelection();
    const auto current = selection.getCurrent();
    if (Forms::RecordEditor::commandOf(*event) && current && selection.getSelected().empty())
        selection.select({*current});
    if (moveTo(event->key(), modifiers) || editor.useKey(*event)) return event->accept();
    event->ignore();
}

/// An arrow key goes to the nearest key in its direction.
bool ComputerKeyboardCtl::moveTo(int key, Qt::KeyboardModifiers modifiers)
{
    const QPoint direction = key == Qt::Key_Left    ? QPoint(-1, 0)
                             : key == Qt::Key_Right ? QPoint(1, 0)
                             : key == Qt::Key_Up    ? QPoint(0, -1)
                             : key == Qt::Key_Down  ? QPoint(0, 1)
                                                    : QPoint();
    if (direction.isNull()) return false;
    Selection& selection = editor.getSelection();
    const auto current = selection.getCurrent();
    const PlannedKey* const from = current ? findPlanned(KeyRecords::keyOf(*current).keyCode) : nullptr;
    if (from == nullptr) return selection.useKey(key, modifiers);
    const auto middleOf = [](const PlannedKey& each) {
        return QRectF(each.x, each.y, each.width, each.height).center();
    };
    const PlannedKey* nearest = nullptr;
    double least = 0;
    for (const PlannedKey& each : KeyboardPlan::getKeys()) {
        constexpr double SIDEWAYS = 3;  // a key straight ahead is nearer than one aside
        const QPointF way = middleOf(each) - middleOf(*from);
        const double ahead = way.x() * direction.x() + way.y() * direction.y();
        const double aside = std::abs(way.x() * direction.y()) + std::abs(way.y() * direction.x());
        const double distance = ahead + SIDEWAYS * aside;
        if (ahead <= 0.5 || (nearest != nullptr && distance >= least)) continue;
        nearest = &each;
        least = distance;
    }
    if (nearest != nullptr)
        selection.moveTo(KeyRecords::idOf(KeyRecords::withModifiers(nearest->code, records.getModifiers())), modifiers);
    return true;
}

void ComputerKeyboardCtl::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void ComputerKeyboardCtl::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

/// The layout may have been changed elsewhere, and a release of the mouse may be lost there.
bool ComputerKeyboardCtl::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && labels.refresh()) update();
    if (event->type() == QEvent::WindowDeactivate) releaseKeys();
    if (event->type() == QEvent::Leave) helpedKey = -1;
    return QWidget::event(event);
}

void ComputerKeyboardCtl::showEvent(QShowEvent* event)
{
    labels.refresh();
    QWidget::showEvent(event);
}

void ComputerKeyboardCtl::hideEvent(QHideEvent* event)
{
    releaseKeys();
    QWidget::hideEvent(event);
}
}  // namespace Gui::ComputerInput
