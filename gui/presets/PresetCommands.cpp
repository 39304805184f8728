#include "gui/presets/PresetCommands.h"

#include <QCoreApplication>
#include <array>

#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "backend/messages/ComputerInputMessageManager.h"
#include "backend/messages/ControlMessageManager.h"
#include "backend/messages/JoystickMessageManager.h"
#include "backend/messages/LayerMessageManager.h"
#include "backend/messages/MidiInputMessageManager.h"
#include "backend/messages/OscMessageManager.h"
#include "gui/framework/EditPoster.h"

namespace Gui::Preset
{
using namespace Backend;

namespace
{
using Records = std::vector<RecordId>;

template <class Manager>
PresetCommands commandsOf(Manager& manager)
{
    return {.load = {},
            .save = {},
            .rename = [&manager](const auto& name, const auto& newName) { manager.postRenamePreset(name, newName); },
            .remove = [&manager](const auto& name) { manager.postDeletePreset(name); }};
}

/// `idOf` gives the id of a record.
template <class Manager, class IdOf>
PresetCommands commandsOf(Manager& manager, IdOf idOf)
{
    PresetCommands commands = commandsOf(manager);
    commands.save = [&manager, idOf](const std::string& name, const Records& records) {
        std::vector<decltype(idOf(0))> ids;
        for (const RecordId record : records) ids.push_back(idOf(record));
        manager.postSavePreset(name, ids);
    };
    return commands;
}

/// Of an item whose records are named by its packed form.
template <class Item>
Item unpacked(RecordId record)
{
    return Item::fromPacked(static_cast<std::uint32_t>(record));
}

PresetCommands indexedCommandsOf(auto& manager)
{
    return commandsOf(manager, [](RecordId record) { return record; });
}

struct Row {
    const PresetSection& section;
    const char* name;
    PresetCommands (*make)(OrvIF& orv);
};

const std::array ROWS{
    Row{PresetSections::COMPUTER_INPUT, QT_TRANSLATE_NOOP("Presets", "Preset of the keys"),
        [](OrvIF& orv) { return commandsOf(orv.getComputerInputMessageManager(), unpacked<Key>); }},
    Row{PresetSections::CONTROLS, QT_TRANSLATE_NOOP("Presets", "Preset of the controls"),
        [](OrvIF& orv) { return commandsOf(orv.getControlMessageManager(), unpacked<Cell>); }},
    Row{PresetSections::JOYSTICK, QT_TRANSLATE_NOOP("Presets", "Preset of the joysticks"),
        [](OrvIF& orv) {
            auto& manager = orv.getJoystickMessageManager();
            PresetCommands commands = commandsOf(manager);
            commands.save = [&manager](const std::string& name, const Records&) { manager.postSavePreset(name); };
            return commands;
        }},
    Row{PresetSections::LAYERS, QT_TRANSLATE_NOOP("Presets", "Preset of the layers"),
        [](OrvIF& orv) { return indexedCommandsOf(orv.getLayerMessageManager()); }},
    Row{PresetSections::MIDI_INPUT, QT_TRANSLATE_NOOP("Presets", "Preset of the MIDI input"),
        [](OrvIF& orv) { return commandsOf(orv.getMidiInputMessageManager(), unpacked<MidiInput::MidiEvent>); }},
    Row{PresetSections::OSCILLATORS, QT_TRANSLATE_NOOP("Presets", "Preset of the oscillators"),
        [](OrvIF& orv) { return indexedCommandsOf(orv.getOscMessageManager()); }},
};
static_assert(std::tuple_size_v<decltype(ROWS)> == PresetSections::ALL.size());
}  // namespace

PresetCommands commandsOf(OrvGuiIF& gui, const PresetSection& section)
{
    PresetCommands commands = ROWS[PresetSections::indexOf(section)].make(gui.getOrvIF());
    commands.load = [&gui, section](const std::string& name) {
        QString edit = nameOf(section);
        edit[0] = edit[0].toLower();
        gui.getEdits().post({.section = section.rootElement,
                             .name = edit.toStdString(),
                             .gesture = gui.getEdits().beginGesture(),
                             .preset = name});
    };
    return commands;
}

QString nameOf(const PresetSection& section)
{
    return QCoreApplication::translate("Presets", ROWS[PresetSections::indexOf(section)].name);
}
}  // namespace Gui::Preset
