#include "backend/sections/layers/LayerManager.h"

#include <array>

#include "backend/files/SequencePresetManager.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/model/PresetSections.h"

namespace Backend::Layers
{
namespace
{
/// The new value of a transposition, which has no limits; the sum wraps as 32-bit numbers do.
std::int32_t changed(std::int32_t current, const RelativeFixedValue& value)
{
    return static_cast<std::int32_t>(value.appliedTo(current));
}

constexpr auto COMMANDS = std::to_array<Command<LayerManager>>({
                              on<LayerMessage::MERGE_LAYERS, &LayerManager::mergeLayers>(),
                              on<LayerMessage::SET_LAYERS, &LayerManager::setLayers>(),
                              on<LayerMessage::SET_SELECTED, &LayerManager::setSelected>(),
                          }) +
                          presetCommands<LayerManager, LayerMessage::Presets>();
}  // namespace

LayerManager::LayerManager(OrvIF& backend, MessageManagerMaster& master)
    : ListSection(backend, PresetSections::LAYERS),
      messageManager(master, [this](Message& message) { execute<LayerManager>(COMMANDS, *this, message); })
{
}

void LayerManager::readContent(const XmlElement& section, LayerList& into)
{
    into.readXml(section, [this](const XmlElement& element, LayerId id) { return readItem(element, id); });
}

Layer LayerManager::readItem(const XmlElement& element, LayerId id) const
{
    Layer layer = Layer::fromXml(element, id);
    SequenceManagement::loadSequencePreset(layer.sequenceSetting);
    return layer;
}

void LayerManager::replaceItem(Layer& layer, Layer read)
{
    read.selected = layer.selected;
    read.solo = layer.solo;
    layer = std::move(read);
}

// --- requests of the window

void LayerManager::mergeLayers(const std::vector<Layer>& changedLayers, bool redraw)
{
    for (const Layer& layer : changedLayers) edit().put(layer);
    publish(redraw);
}

void LayerManager::setLayers(const LayerList& newLayers, bool redraw)
{
    edit() = newLayers;
    publish(redraw);
}

void LayerManager::setSelected(const std::vector<LayerId>& ids) { edit().selectOnly(ids); }

// --- operations

/// `change` changes a layer and returns the new value for the window.
template <class Message, class Change>
void LayerManager::changeLayers(const SelectType& select, const Message& message, Change&& change)
{
    edit().forEachNamed(select, [&](Layer& layer) { postToGui(message, layer.id, change(layer)); });
    updatePlaying();
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
        return value.mode;
    });
}

void LayerManager::dataSelect(const SelectType& select)
{
    edit().select(select, [&](const Layer& layer) { postToGui(GuiMessage::LAYER_SELECTED, layer.id, layer.selected); });
}

void LayerManager::editSelect(const SelectType& select) const { postToGui(GuiMessage::LAYER_EDIT, select); }

// --- publishing

void LayerManager::updatePlaying() { orv.getMidiEngineMessageManager().postSetLayerList(getLayers().getLayers()); }

void LayerManager::notifyGui() const { postToGui(GuiMessage::LAYERS, getContent()); }
}  // namespace Backend::Layers
