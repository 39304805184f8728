#include "gui/forms/BindingFields.h"

#include <QObject>
#include <algorithm>
#include <string_view>

#include "api/OrvGuiIF.h"
#include "backend/bindings/functions/FunctionSettingsTypes.h"
#include "backend/bindings/translations/TranslationSettingsTypes.h"
#include "backend/model/Function.h"
#include "backend/model/PresetList.h"
#include "backend/model/PresetSections.h"
#include "backend/model/Translation.h"
#include "gui/forms/FieldMaker.h"

namespace Gui::Forms
{
using namespace Backend;

namespace
{
using MidiEngine::MessageType;

constexpr int HIGHEST_OF_14_BITS = 16'383;

template <class Settings, class Base, class Result, class Argument>
auto access(Settings& settings, Result (Base::*get)() const, void (Base::*set)(Argument))
{
    using Value = std::conditional_t<std::is_integral_v<Result>, int, std::remove_cvref_t<Result>>;
    return FieldMaker::Access<Value>{[&settings, get] { return Value((settings.*get)()); },
                                     [&settings, set](Value value) { (settings.*set)(std::move(value)); }};
}

/// The section whose presets a type of that name loads.
const char* presetFolderOf(std::string_view typeName)
{
    struct Row {
        std::string_view typeName;
        const PresetSection& section;
    };
    using namespace PresetSections;
    static constexpr Row ROWS[] = {{"LoadOscillatorPreset", OSCILLATORS},       {"LoadJoystickInputPreset", JOYSTICK},
                                   {"LoadMidiInputPreset", MIDI_INPUT},         {"LoadControlPreset", CONTROLS},
                                   {"LoadComputerInputPreset", COMPUTER_INPUT}, {"LoadLayerPreset", LAYERS}};
    for (const Row& row : ROWS)
        if (row.typeName == typeName) return row.section.folder;
    return nullptr;
}

/// The fields of each family, which functions and translations have in common.
class Families
{
public:
    Families(std::string_view type, const FieldLists& names) : typeName(type), lists(names), make(names) {}

    std::vector<FormField> take() { return make.take(); }

    template <class Settings>
    void addToggle(Settings& settings)
    {
        make.addValue(QObject::tr("Switch"), access(settings, &Settings::getOnOffToggle, &Settings::setOnOffToggle));
    }

    template <class Settings>
    void addPreset(Settings& settings)
    {
        const char* folder = presetFolderOf(typeName);
        make.addText(QObject::tr("Preset"), folder != nullptr && lists.presets ? lists.presets(folder) : QStringList(),
                     access(settings, &Settings::getPreset, &Settings::setPreset));
    }

    template <class Settings>
    void addWindow(Settings& settings)
    {
        make.addValue(QObject::tr("From left"), access(settings, &Settings::getX, &Settings::setX));
        make.addValue(QObject::tr("From top"), access(settings, &Settings::getY, &Settings::setY));
    }

    template <class Settings>
    void addChange(Settings& settings)
    {
        if (settings.hasSelect()) {
            FieldMaker::Kinds kinds{.upDown = settings.allowUpDown(),
                                    .selected = settings.allowSelected(),
                                    .specific = settings.allowSpecific(),
                                    .all = settings.allowAll(),
                                    .isOutput = typeName == "ChangeDefaultMidiOutput"};
            if constexpr (requires { settings.allowUseD1(); }) kinds.fromEvent = settings.allowUseD1();
            make.addSelect(kinds, access(settings, &Settings::getSelectType, &Settings::setSelectType));
        }
        if (settings.hasValue())
            make.addValue(QObject::tr("Value"), access(settings, &Settings::getValue, &Settings::setValue));
    }

    template <class Settings>
    void addControl(Settings& settings)
    {
        make.addControlSelect({.upDown = settings.allowArrows(),
                               .selected = settings.allowSelected(),
                               .specific = true,
                               .all = settings.allowAll()},
                              access(settings, &Settings::getSelectControlType, &Settings::setSelectControlType));
        if (settings.hasValue())
            make.addValue(QObject::tr("Value"), access(settings, &Settings::getValue, &Settings::setValue));
    }

    template <class Settings>
    void addPlace(Settings& settings)
    {
        make.addZone(access(settings, &Settings::getZone, &Settings::setZone));
        make.addOutput(QObject::tr("Output"), access(settings, &Settings::getOutput, &Settings::setOutput));
    }

    void addEvent(FunctionManagement::MidiSettingsType& settings)
    {
        using Settings = FunctionManagement::MidiSettingsType;
        const MessageType status = settings.getStatus();
        addPlace(settings);
        if (status < MessageType::systemExclusive)
            make.addChannel(false, access(settings, &Settings::getChannel, &Settings::setChannel));
        addData(status, access(settings, &Settings::getD1, &Settings::setD1),
                access(settings, &Settings::getD2, &Settings::setD2));
    }

    void addEvent(MidiInput::TranslationManagement::MidiSettingsType& settings)
    {
        using Settings = MidiInput::TranslationManagement::MidiSettingsType;
        addPlace(settings);
        make.addChannel(true, {[&settings] { return settings.getChannel().channel; },
                               [&settings](int channel) { settings.setChannel({channel}); }});
        make.addValue(QObject::tr("D1"), access(settings, &Settings::getD1, &Settings::setD1));
        make.addValue(QObject::tr("D2"), access(settings, &Settings::getD2, &Settings::setD2));
    }

private:
    void addData(MessageType status, const FieldMaker::Access<int>& d1, const FieldMaker::Access<int>& d2)
    {
        switch (status) {
            case MessageType::noteOn:
            case MessageType::noteOff:
                make.addNumber(QObject::tr("Note"), {.none = -1, .isNote = true}, d1);
                return make.addNumber(QObject::tr("Velocity"), {}, d2);
            case MessageType::keyPressure:
                make.addNumber(QObject::tr("Note"), {.isNote = true}, d1);
                return make.addNumber(QObject::tr("Pressure"), {}, d2);
            case MessageType::controllerChange:
                make.addController(QObject::tr("Controller"), d1);
                return make.addNumber(QObject::tr("Value"), {}, d2);
            case MessageType::programChange:
                return make.addProgram(QObject::tr("Program"), d1);
            case MessageType::channelPressure:
                return make.addNumber(QObject::tr("Pressure"), {}, d1);
            case MessageType::pitchBend:
            case MessageType::songPosition:
                return make.addNumber(QObject::tr("Value"), {.highest = HIGHEST_OF_14_BITS}, d1);
            case MessageType::songSelect:
                return make.addNumber(QObject::tr("Song"), {}, d1);
            case MessageType::unofficialBusSelect:
                return make.addNumber(QObject::tr("Bus"), {}, d1);
            default:
                return;  // a status alone
        }
    }

    const std::string_view typeName;
    const FieldLists& lists;
    FieldMaker make;
};

/// Both kinds of visitors hand the settings of a family to `Families`.
class FunctionVisitor final : public FunctionManagement::FunctionSettingsTypeVisitor
{
public:
    explicit FunctionVisitor(Families& all) : families(all) {}

    void visit(FunctionManagement::NoFunctionSettingsType&) override {}
    void visit(FunctionManagement::ActionSettingsType&) override {}
    void visit(FunctionManagement::OnOffToggleSettingsType& settings) override { families.addToggle(settings); }
    void visit(FunctionManagement::LoadPresetSettingsType& settings) override { families.addPreset(settings); }
    void visit(FunctionManagement::MoveWindowSettingsType& settings) override { families.addWindow(settings); }
    void visit(FunctionManagement::SelectSettingsType& settings) override { families.addChange(settings); }
    void visit(FunctionManagement::ChangeBooleanSettingsType& settings) override { families.addChange(settings); }
    void visit(FunctionManagement::ChangeNoteToggleSettingsType& settings) override { families.addChange(settings); }
    void visit(FunctionManagement::SelectControlSettingsType& settings) override { families.addControl(settings); }
    void visit(FunctionManagement::MidiSettingsType& settings) override { families.addEvent(settings); }

private:
    Families& families;
};

template <class Settings, class Add>
bool addIf(MidiInput::TranslationManagement::Translation& translation, Add add)
{
    auto* settings = dynamic_cast<Settings*>(&translation);
    if (settings != nullptr) add(*settings);
    return settings != nullptr;
}
}  // namespace

FieldLists takeLists(OrvGuiIF& gui)
{
    FieldLists lists;
    for (const auto& port : gui.getMidiOutputPorts()) lists.outputs << QString::fromStdString(port.getName());
    for (const std::string& name : gui.getSequencePresetList()) lists.sequences << QString::fromStdString(name);
    lists.presets = [&gui](const char* folder) {
        const auto section = std::ranges::find(PresetSections::ALL, std::string_view(folder),
                                               [](const PresetSection& each) { return std::string_view(each.folder); });
        QStringList names;
        for (const PresetEntry& preset : gui.getPresetList(*section).getEntries())
            names << QString::fromStdString(preset.name);
        return names;
    };
    return lists;
}

std::vector<FormField> fieldsOf(FunctionManagement::Function& function, const FieldLists& lists)
{
    Families families(function.getType(), lists);
    FunctionVisitor visitor(families);
    if (auto* settings = dynamic_cast<FunctionManagement::FunctionSettingsType*>(&function)) settings->accept(visitor);
    return families.take();
}

std::vector<FormField> fieldsOf(MidiInput::TranslationManagement::Translation& translation, const FieldLists& lists)
{
    using namespace MidiInput::TranslationManagement;
    Families families(translation.getType(), lists);
    const auto change = [&](auto& settings) { families.addChange(settings); };
    addIf<OnOffToggleSettingsType>(translation, [&](auto& settings) { families.addToggle(settings); }) ||
        addIf<LoadPresetSettingsType>(translation, [&](auto& settings) { families.addPreset(settings); }) ||
        addIf<MoveWindowSettingsType>(translation, [&](auto& settings) { families.addWindow(settings); }) ||
        addIf<SelectSettingsType>(translation, change) || addIf<ChangeBooleanSettingsType>(translation, change) ||
        addIf<ChangeNoteToggleSettingsType>(translation, change) ||
        addIf<SelectControlSettingsType>(translation, [&](auto& settings) { families.addControl(settings); }) ||
        addIf<MidiSettingsType>(translation, [&](auto& settings) { families.addEvent(settings); });
    return families.take();
}
}  // namespace Gui::Forms
