#include "backend/sections/layers/LayerManager.h"

#include <array>
#include <sstream>

#include "api/OrvIF.h"
#include "backend/files/SequencePresetManager.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/model/PresetSections.h"
#include "backend/xml/XmlDocument.h"

namespace Backend::Layers
{
namespace
{
/// The sum wraps as 32-bit numbers do; no limit is set to a transposition.
std::int32_t changed(std::int32_t current, const RelativeFixedValue& value)
{
    return static_cast<std::int32_t>(value.appliedTo(current));
}

constexpr auto COMMANDS = std::to_array<Command<LayerManager>>({
    on<LayerMessage::MERGE_LAYERS, &LayerManager::mergeLayers>(),
    on<LayerMessage::SET_LAYERS, &LayerManager::setLayers>(),
    on<LayerMessage::LOAD_PRESET, &LayerManager::loadPreset>(),
    on<LayerMessage::RENAME_PRESET, &LayerManager::renamePreset>(),
    on<LayerMessage::DELETE_PRESET, &LayerManager::deletePreset>(),
    on<LayerMessage::SAVE_PRESET, &LayerManager::savePreset>(),
    on<LayerMessage::SET_SELECTED, &LayerManager::setSelected>(),
});
}  // namespace

LayerManager::LayerManager(OrvIF& backend, MessageManagerMaster& master)
    : orv(backend),
      presets(PresetSections::LAYERS),
      messageManager(master, [this](Message& message) { execute<LayerManager>(COMMANDS, *this, message); })
{
}

// --- files

void LayerManager::readXml(const XmlElement& section)
{
    layers.readXml(section, [](const XmlElement& element, LayerId id) {
        Layer layer = Layer::fromXml(element, id);
        SequenceManagement::loadSequencePreset(layer.sequenceSetting);
        return layer;
    });
    publish();
}

void LayerManager::writeXml(std::ostream& out, int indent, std::span<const LayerId> ids) const
{
    layers.writeXml(out, indent, ids);
}

void LayerManager::loadPreset(const std::string& name)
{
    const std::string path = presets.findPreset(name);
    if (path.empty()) return;
    readXml(XmlDocument(path, XmlDocument::Source::file).getRoot());
}

void LayerManager::savePreset(const std::string& name, const std::vector<LayerId>& ids)
{
    presets.save(name, [&](std::string& text) {
        std::ostringstream out;
        writeXml(out, 0, ids);
        text += out.str();
    });
}

void LayerManager::renamePreset(const std::string& name, const std::string& newName) { presets.rename(name, newName); }

void LayerManager::deletePreset(const std::string& name) { presets.remove(name); }

void LayerManager::setDefaults()
{
    layers.clear();
    publish();
}

// --- the window's wishes

void LayerManager::mergeLayers(const std::vector<Layer>& changedLayers, bool redraw)
{
    for (const Layer& layer : changedLayers) layers.put(layer);
    publishToEngine();
    if (redraw) tellGui();
}

void LayerManager::setLayers(const LayerList& newLayers, bool redraw)
{
    layers = newLayers;
    publishToEngine();
    if (redraw) tellGui();
}

void LayerManager::setSelected(const std::vector<LayerId>& ids) { layers.selectOnly(ids); }

// --- operations

/// `change` alters a layer and returns what the window is told of it.
template <class Change>
void LayerManager::changeLayers(const SelectType& select, unsigned int message, Change&& change)
{
    const WindowHandle window = orv.getGuiWindowHandle();
    layers.forEachNamed(select, [&](Layer& layer) {
        const std::int32_t value = change(layer);
        window.post({.number = message, .wparam = static_cast<std::uint32_t>(layer.id), .lparam = value});
    });
    publishToEngine();
}

void LayerManager::changeTranspose(const SelectType& select, const RelativeFixedValue& value)
{
    changeLayers(select, GuiMessage::LAYER_TRANSPOSE,
                 [&](Layer& layer) { return layer.transpose.value = changed(layer.transpose.value, value); });
}

void LayerManager::changeVelocity(const SelectType& select, const RelativeFixedValue& value)
{
    changeLayers(select, GuiMessage::LAYER_VELOCITY,
                 [&](Layer& layer) { return layer.velocity.value = changed(layer.velocity.value, value); });
}

void LayerManager::changeMute(const SelectType& select, const OnOffToggle& value)
{
    changeLayers(select, GuiMessage::LAYER_MUTE,
                 [&](Layer& layer) { return layer.mute = value.appliedTo(layer.mute); });
}

void LayerManager::changeMono(const SelectType& select, const OnOffToggle& value)
{
    changeLayers(select, GuiMessage::LAYER_MONO,
                 [&](Layer& layer) { return layer.mono = value.appliedTo(layer.mono); });
}

void LayerManager::changeSolo(const SelectType& select, const OnOffToggle& value)
{
    changeLayers(select, GuiMessage::LAYER_SOLO,
                 [&](Layer& layer) { return layer.solo = value.appliedTo(layer.solo); });
}

void LayerManager::changeNoteToggle(const SelectType& select, const NoteToggle& value)
{
    changeLayers(select, GuiMessage::LAYER_NOTE_TOGGLE, [&](Layer& layer) {
        layer.toggle = value;
        return static_cast<std::int32_t>(value.mode);
    });
}

void LayerManager::dataSelect(const SelectType& select)
{
    const WindowHandle window = orv.getGuiWindowHandle();
    layers.select(select, [&](const Layer& layer) {
        window.post({.number = GuiMessage::LAYER_SELECTED,
                     .wparam = static_cast<std::uint32_t>(layer.id),
                     .lparam = layer.selected});
    });
}

void LayerManager::editSelect(const SelectType& select) const
{
    orv.getGuiWindowHandle().post({.number = GuiMessage::LAYER_EDIT, .payload = Payload::of(SelectType(select))});
}

// --- publishing

void LayerManager::publish()
{
    publishToEngine();
    tellGui();
}

void LayerManager::publishToEngine() { orv.getMidiEngineMessageManager().postSetLayerList(layers.getLayers()); }

void LayerManager::tellGui() const
{
    const WindowHandle window = orv.getGuiWindowHandle();
    if (window) window.post({.number = GuiMessage::LAYERS, .payload = Payload::of(LayerList(layers))});
}
}  // namespace Backend::Layers
