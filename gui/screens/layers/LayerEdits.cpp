#include "gui/screens/layers/LayerEdits.h"

#include <QObject>
#include <QString>

#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/messages/LayerMessageManager.h"
#include "backend/xml/XmlWriter.h"
#include "gui/forms/LayerRecords.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/EditPoster.h"

namespace Gui::Layers
{
using namespace Backend;
using Backend::Layers::Layer;

bool LayerEdits::hasLayer(Id id) const { return id >= 0 && id < static_cast<Id>(layers.size()); }

void LayerEdits::setRange(Id id, int lowNote, int highNote, std::uint32_t gesture)
{
    if (!hasLayer(id)) return;
    editor.change({id}, QObject::tr("range"), gesture, [&] {
        layers.at(id).minNote = MidiEngine::Note(lowNote);
        layers.at(id).maxNote = MidiEngine::Note(highNote);
    });
}

void LayerEdits::toggleMute(Id id)
{
    if (!hasLayer(id)) return;
    editor.change({id}, QObject::tr("mute"), editor.getEdits().beginGesture(),
                  [&] { layers.at(id).mute = !layers.at(id).mute; });
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
    const auto selected = editor.getSelection().getSelected();
    const Id place = selected.empty() ? static_cast<Id>(layers.size()) : selected.front();
    editor.getEdits().post({.section = Layer::SECTION,
                            .name = QObject::tr("add %1").arg(layers.nameOf(place)).toStdString(),
                            .gesture = editor.getEdits().beginGesture(),
                            .records = {{.kind = RecordEdit::Kind::add, .id = place}}});
}

void LayerEdits::remove()
{
    if (editor.getSelection().getSelected().empty() && layers.size() > 0)
        editor.getSelection().select({static_cast<Id>(layers.size()) - 1});
    editor.execute(Forms::RecordEditor::Command::remove);
}

void LayerEdits::copyToChannel(Id id, int channel)
{
    if (!hasLayer(id)) return;
    editor.getEdits().post({.section = Layer::SECTION,
                            .name = QObject::tr("copy %1 to channel").arg(layers.nameOf(id)).toStdString(),
                            .gesture = editor.getEdits().beginGesture(),
                            .records = {{.kind = RecordEdit::Kind::add,
                                         .id = id + 1,
                                         .fields = {{"channel", std::to_string(channel)}},
                                         .copyOf = id}}});
}

bool LayerEdits::useKey(const QKeyEvent& event) { return editor.useKey(event); }

void LayerEdits::addTo(PopupMenu& menu) { editor.addTo(menu); }

void LayerEdits::selectForFunctions()
{
    const Forms::Selection& selection = editor.getSelection();
    for (const Id id : layers.getIds()) layers.at(id).selected = selection.isSelected(id);
    gui.getOrvIF().getLayerMessageManager().postSetSelected(selection.getSelected());
}
}  // namespace Gui::Layers
