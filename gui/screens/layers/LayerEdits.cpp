#include "gui/screens/layers/LayerEdits.h"

#include <QObject>
#include <QString>
#include <algorithm>
#include <utility>

#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/messages/LayerMessageManager.h"
#include "backend/xml/XmlWriter.h"
#include "gui/forms/Selection.h"
#include "gui/framework/EditPoster.h"

namespace Gui::Layers
{
using namespace Backend;
using Backend::Layers::Layer;

namespace
{
QString nameOf(Backend::Layers::LayerId id) { return QObject::tr("layer %1").arg(id + 1); }
}  // namespace

void LayerEdits::setRange(Id id, int lowNote, int highNote, std::uint32_t gesture)
{
    if (!hasLayer(id)) return;
    const auto text = [](int note) { return MidiEngine::Note(note).toXmlString(); };
    gui.getEdits().post({.section = Layer::SECTION,
                         .name = QObject::tr("%1 range").arg(nameOf(id)).toStdString(),
                         .gesture = gesture,
                         .records = {{.id = id, .fields = {{"minNote", text(lowNote)}, {"maxNote", text(highNote)}}}}});
}

void LayerEdits::toggleMute(Id id)
{
    if (!hasLayer(id)) return;
    const bool isMuted = layers[static_cast<std::size_t>(id)].mute;
    gui.getEdits().change(Layer::SECTION, id, {"mute", isMuted ? "false" : "true"},
                          QObject::tr("%1 mute").arg(nameOf(id)).toStdString(), gui.getEdits().beginGesture());
}

/// Files do not hold it.
void LayerEdits::toggleSolo(Id id)
{
    gui.getOrvMessageManager().postExecuteFunction(xmlOpenTag("ChangeLayerSolo") +
                                                   xmlStringAttribute("type", std::to_string(id)) +
                                                   xmlStringAttribute("value", "toggle") + xmlCloseEmpty());
}

void LayerEdits::add()
{
    const auto selected = selection.getSelected();
    const Id place = selected.empty() ? static_cast<Id>(layers.size()) : selected.front();
    gui.getEdits().post({.section = Layer::SECTION,
                         .name = QObject::tr("add %1").arg(nameOf(place)).toStdString(),
                         .gesture = gui.getEdits().beginGesture(),
                         .records = {{.kind = RecordEdit::Kind::add, .id = place}}});
    selection.added(place);
}

/// From the last one on, because those behind move up.
void LayerEdits::remove()
{
    auto ids = selection.getSelected();
    if (ids.empty() && !layers.empty()) ids = {static_cast<Id>(layers.size()) - 1};
    if (ids.empty()) return;
    const QString name = ids.size() == 1 ? QObject::tr("delete %1").arg(nameOf(ids.front()))
                                         : QObject::tr("delete %1 layers").arg(ids.size());
    std::ranges::reverse(ids);
    Edit edit{
        .section = Layer::SECTION, .name = name.toStdString(), .gesture = gui.getEdits().beginGesture(), .records = {}};
    for (const Id id : ids) edit.records.push_back({.kind = RecordEdit::Kind::remove, .id = id});
    gui.getEdits().post(std::move(edit));
    for (const Id id : ids) selection.removed(id);
}

void LayerEdits::addCopy(Id id, const QString& name, Fields fields)
{
    if (!hasLayer(id)) return;
    gui.getEdits().post(
        {.section = Layer::SECTION,
         .name = name.toStdString(),
         .gesture = gui.getEdits().beginGesture(),
         .records = {{.kind = RecordEdit::Kind::add, .id = id + 1, .fields = std::move(fields), .copyOf = id}}});
    selection.added(id + 1);
}

void LayerEdits::copyToChannel(Id id, int channel)
{
    addCopy(id, QObject::tr("copy %1 to channel").arg(nameOf(id)), {{"channel", std::to_string(channel)}});
}

void LayerEdits::copy(Id id) { addCopy(id, QObject::tr("double %1").arg(nameOf(id)), {}); }

void LayerEdits::selectForFunctions()
{
    for (Layer& layer : layers) layer.selected = selection.isSelected(layer.id);
    gui.getOrvIF().getLayerMessageManager().postSetSelected(selection.getSelected());
}
}  // namespace Gui::Layers
