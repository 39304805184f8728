#include "gui/screens/zones/ZoneCtl.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/ZoneMessageManager.h"
#include "backend/model/FunctionNoteSpan.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"

namespace Gui::Zones
{
using Backend::Zones::Zone;
using Backend::Zones::ZoneId;
using Role = GdiManager::Role;
namespace NoteSource = Backend::FunctionManagement::NoteSource;

namespace
{
constexpr int OCTAVE = ZoneGeometry::OCTAVE;

struct StepRow {
    const char* text;
    int semitones;
};
constexpr StepRow STEPS[] = {{"An octave up (Shift+Right)", OCTAVE},
                             {"A semitone up (Right)", 1},
                             {"A semitone down (Left)", -1},
                             {"An octave down (Shift+Left)", -OCTAVE}};

/// What feeds a zone.
QString sourcesOf(const Zone& zone)
{
    QStringList sources;
    if (zone.sources & NoteSource::KEYS) sources << QObject::tr("keys");
    if (zone.sources & NoteSource::MIDI_INPUTS) sources << QObject::tr("MIDI");
    if (zone.sources & NoteSource::JOYSTICKS) sources << QObject::tr("joystick");
    return sources.join(QStringLiteral(" + "));
}

QString signedText(int value) { return (value > 0 ? "+" : "") + QString::number(value); }
}  // namespace

ZoneCtl::ZoneCtl(OrvGuiIF& owner, QWidget* parent) : BarList(owner, parent), gui(owner)
{
    setAccessibleName(tr("Zones"));
    Property::setHelp(
        *this,
        tr("Zones: the keys on which the notes of each input sound; number:transposition in semitones. Drag a bar "
           "with the left button for octaves, with the right one for semitones; or Left and Right, with Shift "
           "for octaves, or Control and the wheel."));
    rescale();
}

// --- changes that the backend reports

void ZoneCtl::handleZones(const Backend::Zones::ZoneMap& zones)
{
    rows.clear();
    const auto iterator = zones.createIterator();
    while (const Zone* zone = iterator->next()) rows.push_back(*zone);
    const auto selected = std::ranges::find_if(rows, &Zone::selected);
    if (selected != rows.end()) setCurrentRow(static_cast<int>(selected - rows.begin()));
    if (drag && rowOf(drag->zone) < 0) drag.reset();
    rowsChanged();
}

void ZoneCtl::handleZoneTranspose(ZoneId id, int transpose)
{
    const int row = rowOf(id);
    if (row < 0) return;
    rows[static_cast<std::size_t>(row)].transpose = static_cast<std::int8_t>(transpose);
    changed(row);
}

void ZoneCtl::handleZoneSelected(ZoneId id, bool selected)
{
    const int row = rowOf(id);
    if (row < 0) return;
    rows[static_cast<std::size_t>(row)].selected = selected;
    if (selected) setCurrentRow(row);
    changed(row);
}

void ZoneCtl::showNotes(const Backend::MidiEngine::NoteActivity& activity)
{
    std::vector<Notes> notes;
    for (const Zone& zone : rows)  // a file may name a zone below 0, in which nothing plays
        notes.push_back(zone.id < 0 ? Notes() : activity.zones[static_cast<std::size_t>(zone.id)]);
    setLitNotes(std::move(notes));
}

// --- the rows

int ZoneCtl::rowOf(ZoneId id) const
{
    const auto found = std::ranges::find(rows, id, &Zone::id);
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

Zone ZoneCtl::shownZone(int row) const
{
    Zone zone = at(row);
    const bool isEdited = wanted && wanted->zone == zone.id && !gui.getEdits().isIdle();
    if (isEdited) zone.transpose = static_cast<std::int8_t>(wanted->transpose);
    return zone;
}

ZoneGeometry ZoneCtl::geometry() const { return ZoneGeometry(getKeys(), getGdi().getScale()); }

QRect ZoneCtl::getRowPlace(int row) const { return geometry().rowPlace(row); }

int ZoneCtl::getLogicalHeight() const { return ZoneGeometry::PITCH * std::max(1, getRowCount()); }

QString ZoneCtl::getEmptyText() const { return tr("No key, MIDI input or joystick plays notes in this program."); }

QString ZoneCtl::nameOf(ZoneId id) const { return tr("zone %1 transposition").arg(id + 1); }

QString ZoneCtl::getRowName(int row) const
{
    const Zone zone = shownZone(row);
    const auto nameOfNote = [&](Backend::MidiEngine::Note note) {
        return QString::fromStdString(
            getNoteName(std::clamp(note.getNumber() + zone.transpose, 0, 127), Backend::MidiEngine::Octave::with));
    };
    QString name = tr("Zone %1").arg(zone.id + 1);
    if (zone.lowNote.isNote()) name += tr(", %1 to %2").arg(nameOfNote(zone.lowNote), nameOfNote(zone.highNote));
    if ((zone.sources & ~NoteSource::KEYS) != 0) name += tr(", played by %1").arg(sourcesOf(zone));
    if (zone.transpose != 0) name += tr(", transposed by %1").arg(signedText(zone.transpose));
    return name;
}

void ZoneCtl::selectRow(int row)
{
    for (Zone& zone : rows) zone.selected = zone.id == at(row).id;
    setCurrentRow(row);
    gui.getOrvIF().getZoneMessageManager().postSelectZone({SelectType::Kind::specific, at(row).id});
    update();
}

void ZoneCtl::changed(int row)
{
    update(getRowPlace(row));
    if (row == getCurrentRow()) currentRowChanged(*this, *this);
}

// --- transposing

void ZoneCtl::setTranspose(int row, int transpose, std::uint32_t gesture)
{
    const int value = limitedTranspose(transpose);
    const ZoneId id = at(row).id;
    if (value == shownZone(row).transpose) return;
    wanted = {id, value};
    gui.getEdits().change("Zones", id, {"transpose", std::to_string(value)}, nameOf(id).toStdString(), gesture);
    changed(row);
}

/// Holding a key or turning the wheel is one step of undo.
std::uint32_t ZoneCtl::ongoingGesture(int row) const
{
    return gui.getEdits().gestureOf("transposition of zone " + std::to_string(at(row).id));
}

bool ZoneCtl::useKey(const QKeyEvent& event)
{
    const bool isUp = event.key() == Qt::Key_Right;
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool isShifted = modifiers == Qt::ShiftModifier;
    if ((!isUp && event.key() != Qt::Key_Left) || (!isShifted && modifiers != Qt::NoModifier)) return false;
    const int row = getCurrentRow();
    const int semitones = (isUp ? 1 : -1) * (isShifted ? OCTAVE : 1);
    if (row >= 0) setTranspose(row, shownZone(row).transpose + semitones, ongoingGesture(row));
    return true;
}

void ZoneCtl::showRowMenu(int row, const QPoint& globalPosition)
{
    constexpr int NONE = 100;
    auto* menu = new PopupMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const StepRow& each : STEPS) menu->addItem(tr(each.text));
    menu->addItem({.text = tr("No transposition"), .enabled = shownZone(row).transpose != 0, .id = NONE});
    menu->onChosen = [this, id = at(row).id](int chosen) {
        const int now = rowOf(id);
        if (now < 0) return;
        const int transpose = chosen == NONE ? 0 : shownZone(now).transpose + STEPS[chosen].semitones;
        setTranspose(now, transpose, gui.getEdits().beginGesture());
    };
    menu->show(globalPosition);
}

// --- the mouse

int ZoneCtl::barAt(const QPoint& point) const
{
    const int row = geometry().rowAt(point.y());
    if (row < 0 || row >= getRowCount()) return -1;
    return geometry().barOf(row, shownZone(row)).contains(point) ? row : -1;
}

void ZoneCtl::mousePressEvent(QMouseEvent* event)
{
    const bool isDragged = event->button() == Qt::LeftButton || event->button() == Qt::RightButton;
    if (!isDragged || drag) return;
    const QPoint point = event->position().toPoint();
    const int row = barAt(point);
    if (row < 0) return reachFor(point);
    selectRow(row);
    drag = {at(row).id, point.x(), event->button(), gui.getEdits().beginGesture()};
}

void ZoneCtl::mouseMoveEvent(QMouseEvent* event)
{
    if (!drag) return;
    if (!event->buttons().testFlag(drag->button)) return drag.reset();
    const int x = event->position().toPoint().x();
    const int semitones = geometry().semitonesOf(x - drag->x, drag->button);
    if (semitones == 0) return;
    drag->x = x;
    drag->moved = true;
    const int row = rowOf(drag->zone);
    setTranspose(row, shownZone(row).transpose + semitones, drag->gesture);
}

/// Either button ends the drag. A click with the right one opens the menu.
void ZoneCtl::mouseReleaseEvent(QMouseEvent* event)
{
    if (!drag) return;
    const Drag ended = *std::exchange(drag, std::nullopt);
    if (event->button() == Qt::RightButton && ended.button == Qt::RightButton && !ended.moved)
        showRowMenu(rowOf(ended.zone), event->globalPosition().toPoint());
}

/// A click beside a bar, in its row.
void ZoneCtl::reachFor(const QPoint& point)
{
    if (!gui.getRegistrySettings().getClickZoneChannelTranspose()) return;
    const int row = geometry().rowAt(point.y());
    const bool isOverKeys =
        point.x() >= getKeys().leftEdge(0) && point.x() < getKeys().rightEdge(Output::KeyOutlines::NOTES - 1);
    if (row < 0 || row >= getRowCount() || !isOverKeys) return;
    setTranspose(row, geometry().transposeToReach(row, shownZone(row), point.x()), gui.getEdits().beginGesture());
}

/// Without Control it scrolls.
void ZoneCtl::wheelEvent(QWheelEvent* event)
{
    const int row = barAt(event->position().toPoint());
    if (!event->modifiers().testFlag(Qt::ControlModifier) || row < 0) return event->ignore();
    const int notches = wheel.takeNotches(*event);
    const int semitones = notches * (event->modifiers().testFlag(Qt::ShiftModifier) ? OCTAVE : 1);
    if (notches != 0) setTranspose(row, shownZone(row).transpose + semitones, ongoingGesture(row));
}

bool ZoneCtl::event(QEvent* event)
{
    if (event->type() == QEvent::Hide || event->type() == QEvent::WindowDeactivate) drag.reset();
    return BarList::event(event);
}

// --- drawing

void ZoneCtl::paintRow(QPainter& painter, int row)
{
    const Zone zone = shownZone(row);
    const QString text = QString::number(zone.id + 1) + ':' + QString::number(zone.transpose);
    const QRect bar = geometry().barOf(row, zone);
    if (bar.isEmpty()) {
        painter.setFont(getGdi().getFont(GdiManager::FontRole::font9));
        painter.setPen(getGdi().getColour(Role::label));
        return painter.drawText(getRowPlace(row).adjusted(getGdi().px(5), 0, 0, 0), Qt::AlignVCenter, text);
    }
    const bool isOther = zone.id % 2 != 0;  // the colours of the keys that play in it
    paintBar(painter, {.place = bar,
                       .fill = zone.selected ? Role::selectedButton
                               : isOther     ? Role::text
                                             : Role::unselectedButton,
                       .text = text,
                       .end = sourcesOf(zone),
                       .lit = getLitNotes(row)});
}
}  // namespace Gui::Zones
