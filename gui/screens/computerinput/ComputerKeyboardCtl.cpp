#include "gui/screens/computerinput/ComputerKeyboardCtl.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "api/OrvGuiIF.h"
#include "backend/values/Note.h"
#include "gui/forms/FunctionCaption.h"
#include "gui/framework/Look.h"
#include "gui/keyboard/KeyPresses.h"
#include "gui/screens/computerinput/KeyboardPlan.h"

namespace Gui::ComputerInput
{
using Backend::ComputerInput::KeyConfiguration;
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

QString nameOf(const Key& key)
{
    if (key.keyCode == Key::RIGHT_OF_LEFT_SHIFT) return QObject::tr("The key right of the left Shift");
    return QString::fromStdString(key.toXmlString());
}
}  // namespace

ComputerKeyboardCtl::ComputerKeyboardCtl(OrvGuiIF& owner,
                                         const Backend::ComputerInput::KeyConfigurationMap& configurations,
                                         const Backend::Zones::ZoneMap& playedZones, QWidget* parent)
    : QWidget(parent), gui(owner), keys(configurations), zones(playedZones)
{
    setAccessibleName(tr("Computer keyboard"));
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

QString ComputerKeyboardCtl::getAccessibleValue() const
{
    QStringList names;
    for (const int code : down) names << nameOf(Key{.keyCode = code});
    return names.join(QStringLiteral(", "));
}

// --- what a key does

const KeyConfiguration* ComputerKeyboardCtl::findConfiguration(int keyCode) const
{
    Key key = held;
    key.keyCode = keyCode;
    if (bool Key::*const own = modifierOf(keyCode)) key.*own = false;
    const KeyConfiguration* const found = keys.findElement(key);
    return found == nullptr || found->isEmpty() ? nullptr : found;
}

QString ComputerKeyboardCtl::getCaption(int keyCode) const
{
    const KeyConfiguration* const configuration = findConfiguration(keyCode);
    return configuration == nullptr ? QString() : FunctionCaption::captionOf(*configuration, zones);
}

QString ComputerKeyboardCtl::getHelp(int keyCode) const
{
    Key key = held;
    key.keyCode = keyCode;
    if (bool Key::*const own = modifierOf(keyCode)) key.*own = false;
    const KeyConfiguration* const configuration = findConfiguration(keyCode);
    if (configuration == nullptr) return nameOf(key) + tr(": does nothing.");
    const QString away = configuration->global ? QString() : tr("\nOther programs keep this key.");
    return nameOf(key) + '\n' + FunctionCaption::describe(*configuration) + away;
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
}

// --- the mouse

void ComputerKeyboardCtl::mousePressEvent(QMouseEvent* event)
{
    const PlannedKey* const key = keyAt(event->position());
    if (event->button() != Qt::LeftButton || key == nullptr) return;
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

void ComputerKeyboardCtl::releaseKeys() { gui.getKeyPresses().releaseAll(Source::picture); }

void ComputerKeyboardCtl::mouseMoveEvent(QMouseEvent* event) { showHelp(keyAt(event->position())); }

void ComputerKeyboardCtl::showHelp(const PlannedKey* key)
{
    const int code = key == nullptr ? -1 : key->code;
    if (code == helpedKey) return;
    helpedKey = code;
    if (code >= 0) gui.displayHelp(getHelp(code).toStdString());
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
