#include "gui/screens/layers/LayerCtl.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "api/OrvGuiIF.h"
#include "gui/forms/LayerRecords.h"
#include "gui/forms/Selection.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/Look.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"
#include "gui/screens/layers/LayerEdits.h"

namespace Gui::Layers
{
using Backend::Layers::Layer;
using Backend::MidiEngine::Octave;
using Role = GdiManager::Role;
using Part = LayerGeometry::Part;

namespace
{
constexpr int OCTAVE = 12;
constexpr int CHANNELS = 16;
constexpr int HIGHEST_NOTE = 127;
constexpr int MARK = 5;  // logical pixels

enum MenuItem { mute = 100, solo, range, add, soloMode, info, channel };  // the last one is the first channel

QString noteName(Backend::MidiEngine::Note note)
{
    return QString::fromStdString(getNoteName(note.getNumber(), Octave::with));
}
}  // namespace

LayerCtl::LayerCtl(OrvGuiIF& owner, const Forms::LayerRecords& shownLayers, Forms::Selection& selected,
                   LayerEdits& changes, QWidget* parent)
    : BarList(owner, parent), gui(owner), layers(shownLayers), selection(selected), edits(changes)
{
    setAccessibleName(tr("Layers"));
    setMouseTracking(true);
    Property::setHelp(
        *this,
        tr("Layers: the notes that each takes. Drag an end of a bar, or move the lower end by Left and Right, the "
           "upper one with Shift; Control makes it an octave. M mutes, S solos, or Space. Right click or Enter: "
           "settings. Middle click: the range from two played notes. Right click beside a bar: menu."));
    rescale();
}

void LayerCtl::showNotes(const Backend::MidiEngine::NoteActivity& activity)
{
    setLitNotes({activity.layers.begin(), activity.layers.end()});
}

void LayerCtl::layersChanged()
{
    if (drag && drag->layer >= getRowCount()) drag.reset();
    if (const auto shown = selection.getCurrent(); shown && *shown < getRowCount()) setCurrentRow(*shown);
    rowsChanged();
}

void LayerCtl::setRangedLayer(Id id)
{
    ranged = id;
    update();
}

void LayerCtl::setSoloMode(bool on)
{
    soloMode = on;
    update();
    if (onModeChange) onModeChange();
}

void LayerCtl::setInfoMode(bool on)
{
    infoMode = on;
    update();
    if (onModeChange) onModeChange();
}

// --- the rows

int LayerCtl::getRowCount() const { return static_cast<int>(layers.size()); }

Layer LayerCtl::shownLayer(int row) const
{
    Layer layer = layers.at(row);
    const bool isEdited = wanted && wanted->layer == layer.id && !gui.getEdits().isIdle();
    if (isEdited) {
        layer.minNote = Backend::MidiEngine::Note(wanted->low);
        layer.maxNote = Backend::MidiEngine::Note(wanted->high);
    }
    return layer;
}

LayerGeometry LayerCtl::geometry() const { return LayerGeometry(getKeys(), getGdi().getScale()); }

QRect LayerCtl::getRowPlace(int row) const { return geometry().rowPlace(row); }

int LayerCtl::getLogicalHeight() const
{
    return LayerGeometry::TOP + LayerGeometry::PITCH * std::max(1, getRowCount());
}

QString LayerCtl::getEmptyText() const { return tr("No layers: notes without an output of their own are not played."); }

QString LayerCtl::getRowName(int row) const
{
    const Layer layer = shownLayer(row);
    QString name =
        tr("Layer %1, %2 to %3").arg(QString::number(row + 1), noteName(layer.minNote), noteName(layer.maxNote));
    name += ", " + routeOf(layer);
    if (layer.arpeggio) name += tr(", arpeggio");
    if (layer.mute) name += tr(", muted");
    if (layer.solo) name += tr(", solo");
    return name;
}

QString LayerCtl::routeOf(const Layer& layer) const
{
    QString route = layer.channel < 0 ? tr("default channel") : tr("channel %1").arg(layer.channel + 1);
    if (layer.output >= 0) route += tr(" of %1").arg(outputName(layer.output));
    return route;
}

/// Its number, if the machine never had it.
QString LayerCtl::outputName(int output) const
{
    const auto& ports = gui.getMidiOutputPorts();
    const auto index = static_cast<std::size_t>(output);
    const bool isKnown = index < ports.size() && !ports[index].name.empty();
    const QString name = isKnown ? QString::fromStdString(ports[index].name) : QString::number(output);
    return isKnown && ports[index].found ? name : tr("%1 (missing)").arg(name);
}

bool LayerCtl::isRowSelected(int row) const { return selection.isSelected(row); }

void LayerCtl::selectRow(int row)
{
    selection.select({row});
    edits.selectForFunctions();
}

/// Whether it plays what it takes.
bool LayerCtl::isHeard(const Layer& layer) const
{
    const auto isSolo = [this](Id id) { return layers.at(id).solo; };
    return !layer.mute && (layer.solo || std::ranges::none_of(layers.getIds(), isSolo));
}

// --- the mouse

void LayerCtl::mousePressEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    const int row = geometry().rowAt(point.y(), getRowCount());
    if (row < 0 || drag) return;
    const Part part = geometry().partAt(row, shownLayer(row), point);
    const bool isBar = part != Part::row;
    switch (event->button()) {
        case Qt::LeftButton:
            return click(row, part, event->modifiers());
        case Qt::RightButton:
            selection.clickForMenu(row);
            if (part == Part::row || part == Part::button)
                showRowMenu(row, event->globalPosition().toPoint());
            else
                onOpenSettings();
            return;
        case Qt::MiddleButton:
            if (isBar && onSelectRange) onSelectRange(row);
            return;
        default:
            return;
    }
}

void LayerCtl::click(int row, Part part, Qt::KeyboardModifiers held)
{
    if (part == Part::row) return;
    if (part == Part::button) return pressButton(row);
    selection.click(row, held);
    edits.selectForFunctions();
    if (part == Part::lowEnd || part == Part::highEnd) drag = {row, part, gui.getEdits().beginGesture()};
}

void LayerCtl::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (drag && !event->buttons().testFlag(Qt::LeftButton)) drag.reset();
    if (!drag) return showCursor(point);
    const int note = drag->end == Part::lowEnd ? geometry().lowNoteAt(point.x()) : geometry().highNoteAt(point.x());
    moveEnd(drag->layer, drag->end, note, drag->gesture);
}

void LayerCtl::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) drag.reset();
}

void LayerCtl::showCursor(const QPoint& point)
{
    const int row = geometry().rowAt(point.y(), getRowCount());
    const Part part = row < 0 ? Part::row : geometry().partAt(row, shownLayer(row), point);
    setCursor(part == Part::lowEnd || part == Part::highEnd ? Qt::SizeHorCursor : Qt::ArrowCursor);
}

bool LayerCtl::event(QEvent* event)
{
    if (event->type() == QEvent::Hide || event->type() == QEvent::WindowDeactivate) drag.reset();
    return BarList::event(event);
}

// --- what is changed

void LayerCtl::setRange(Id id, int lowNote, int highNote, std::uint32_t gesture)
{
    if (id < 0 || id >= getRowCount()) return;
    const Layer layer = shownLayer(id);
    const Range before{id, layer.minNote.getNumber(), layer.maxNote.getNumber()};
    const Range next{id, lowNote < 0 ? before.low : lowNote, highNote < 0 ? before.high : highNote};
    if (next == before) return;
    wanted = next;
    edits.setRange(id, next.low, next.high, gesture);
    update(getRowPlace(id));
    currentRowChanged(*this, *this);
}

/// An end stops at the other one.
void LayerCtl::moveEnd(int row, Part end, int note, std::uint32_t gesture)
{
    const Layer layer = shownLayer(row);
    if (end == Part::lowEnd)
        setRange(row, std::clamp(note, 0, std::max(layer.maxNote.getNumber(), 0)), -1, gesture);
    else
        setRange(row, -1, std::clamp(note, std::min<int>(layer.minNote.getNumber(), HIGHEST_NOTE), HIGHEST_NOTE),
                 gesture);
}

void LayerCtl::pressButton(int row) { soloMode ? edits.toggleSolo(row) : edits.toggleMute(row); }

// --- keys

bool LayerCtl::useKey(const QKeyEvent& event)
{
    const int row = getCurrentRow();
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool isCommand = modifiers == Qt::ControlModifier && event.key() != Qt::Key_Control;
    if (isCommand && row >= 0 && selection.getSelected().empty()) selectRow(row);
    if (moveEndByKey(event) || selectByKey(event)) return true;
    if (modifiers != Qt::NoModifier) return edits.useKey(event);
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (row >= 0 && !selection.isSelected(row)) selectRow(row);
            onOpenSettings();
            return true;
        case Qt::Key_Space:
            if (row >= 0) pressButton(row);
            return true;
        case Qt::Key_Insert:
            edits.add();
            return true;
        case Qt::Key_Delete:
            if (row >= 0 && selection.getSelected().empty()) selectRow(row);
            edits.remove();
            return true;
        default:
            return false;
    }
}

/// Left and Right: the lower end, with Shift the upper one; with Control by an octave.
bool LayerCtl::moveEndByKey(const QKeyEvent& event)
{
    const bool isUp = event.key() == Qt::Key_Right;
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if ((!isUp && event.key() != Qt::Key_Left) || (modifiers & ~(Qt::ShiftModifier | Qt::ControlModifier)))
        return false;
    const int row = getCurrentRow();
    if (row < 0) return true;
    const Part end = modifiers.testFlag(Qt::ShiftModifier) ? Part::highEnd : Part::lowEnd;
    const Layer layer = shownLayer(row);
    const int now = (end == Part::lowEnd ? layer.minNote : layer.maxNote).getNumber();
    const int step = modifiers.testFlag(Qt::ControlModifier) ? OCTAVE : 1;
    moveEnd(row, end, now + (isUp ? step : -step), gui.getEdits().gestureOf("range of layer " + std::to_string(row)));
    return true;
}

/// What extends the selection.
bool LayerCtl::selectByKey(const QKeyEvent& event)
{
    constexpr int KEYS[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End};
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool isMove = modifiers != Qt::NoModifier && std::ranges::find(KEYS, event.key()) != std::end(KEYS);
    const bool isAll = event.key() == Qt::Key_A && modifiers == Qt::ControlModifier;
    if ((!isMove && !isAll) || !selection.useKey(event.key(), modifiers)) return false;
    if (const auto shown = selection.getCurrent()) {
        if (onReveal) onReveal(getRowPlace(*shown));
    }
    edits.selectForFunctions();
    return true;
}

// --- the menu

void LayerCtl::showRowMenu(int row, const QPoint& globalPosition)
{
    const bool isLayer = row >= 0 && row < getRowCount();
    if (isLayer) selection.clickForMenu(row);
    const Layer layer = isLayer ? layers.at(row) : Layer();
    auto* menu = new PopupMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto item = [&](const QString& text, int id, bool enabled = true) {
        menu->addItem({.text = text, .enabled = enabled, .id = id});
    };
    edits.addTo(*menu);
    item(layer.mute ? tr("Unmute") : tr("Mute"), mute, isLayer);
    item(layer.solo ? tr("End Solo") : tr("Solo"), solo, isLayer);
    item(tr("Set Range On The Piano Keyboard"), range, isLayer);
    PopupMenu& channels = menu->addSubMenu(tr("Copy Layer %1 To Channel").arg(row + 1), isLayer);
    channels.addItem({.text = tr("Default"), .id = channel});
    for (int number = 1; number <= CHANNELS; ++number)
        channels.addItem({.text = QString::number(number), .id = channel + number});
    item(tr("Add Layer\tIns"), add);
    item(soloMode ? tr("Mute Buttons") : tr("Solo Buttons"), MenuItem::soloMode);
    item(infoMode ? tr("Hide Layer Info") : tr("Show Layer Info"), info);
    menu->onChosen = [this, row](int chosen) {
        switch (chosen) {
            case mute:
                return edits.toggleMute(row);
            case solo:
                return edits.toggleSolo(row);
            case range:
                return onSelectRange(row);
            case add:
                return edits.add();
            case MenuItem::soloMode:
                return setSoloMode(!soloMode);
            case info:
                return setInfoMode(!infoMode);
            default:
                if (chosen >= channel) edits.copyToChannel(row, chosen - channel - 1);
        }
    };
    menu->show(globalPosition);
}

// --- drawing

QString LayerCtl::textOf(const Layer& layer) const
{
    if (!infoMode) return QString::number(layer.id + 1);
    return QString::fromStdString(layer.getLayerString(outputName(layer.output).toStdString()));
}

/// What it makes of its notes and where it sends them, in short.
QString LayerCtl::endOf(const Layer& layer) const
{
    QStringList parts;
    if (infoMode) return {};
    if (layer.arpeggio) parts << tr("arp");
    if (layer.output >= 0) parts << outputName(layer.output);
    parts << (layer.channel < 0 ? tr("ch default") : tr("ch %1").arg(layer.channel + 1));
    return parts.join(QStringLiteral("  "));
}

/// One that takes the notes of a zone has the colour of its keys.
Role LayerCtl::fillOf(const Layer& layer) const
{
    if (selection.isSelected(layer.id)) return Role::selectedButton;
    if (!isHeard(layer)) return Role::unusedButton;
    return layer.zone > 0 && layer.zone % 2 != 0 ? Role::text : Role::unselectedButton;
}

void LayerCtl::paintRow(QPainter& painter, int row)
{
    const Layer layer = shownLayer(row);
    const QRect bar = geometry().barOf(row, layer);
    const QRect button = geometry().buttonOf(bar);
    const bool isOn = soloMode ? layer.solo : layer.mute;
    const Role fill = fillOf(layer);
    paintBar(painter, {.place = bar.adjusted(button.width(), 0, 0, 0),
                       .fill = fill,
                       .text = textOf(layer),
                       .end = endOf(layer),
                       .lit = getLitNotes(row),
                       .before = button.width()});
    paintBar(painter, {.place = button.adjusted(0, 0, -1, 0),
                       .fill = isOn ? Role::text : Role::disabledButton,
                       .text = soloMode ? tr("S") : tr("M")});
    if (row == ranged) Look::drawFocus(painter, getGdi(), bar);
    if (!layer.selected) return;
    const int side = getGdi().px(MARK);  // functions act on it
    painter.fillRect(QRect(bar.right() - 2 * side, bar.center().y() - side / 2, side, side),
                     Look::inkOn(getGdi().getColour(fill)));
}
}  // namespace Gui::Layers
