#pragma once

#include "backend/sections/controls/ControlManager.h"
#include "tests/sections/SectionStage.h"

using Backend::MidiEngine::MidiMessage;

/// A fader that sends one event through the layers.
inline Backend::Controls::Control fader(const Cell& cell, MidiMessage event, std::int32_t value = 0,
                                        std::int32_t max = 127)
{
    return {.cell = cell,
            .type = {Backend::Controls::ControlType::Kind::vfader},
            .value = value,
            .max = max,
            .functions = {{.midiEvent = event}}};
}
inline MidiMessage cc(int number) { return MidiMessage(MessageType::controllerChange, number); }
inline SelectControlType at(std::int32_t row, std::int32_t col)
{
    return {SelectControlType::Kind::specific, {row, col}};
}

/// With these controls.
struct ControlStage : SectionStage<Backend::Controls::ControlManager> {
    explicit ControlStage(const std::vector<Backend::Controls::Control>& all = {})
        : SectionStage(&Backend::OrvIF::getControlManager)
    {
        section.mergeControls(all, false, true);
    }

    Backend::Controls::ControlMessageManager& messages() { return section.getMessageManager(); }

    void move(const Cell& cell, std::int32_t value)
    {
        messages().postSetValue(cell, value);
        rest();
    }
    void link(const std::vector<Cell>& cells)
    {
        for (const Cell& cell : cells) messages().postSetSelected(cell, true);
        rest();
    }

    /// All values in the order of the cells, after what still plays.
    std::string values()
    {
        playSlices();
        std::vector<std::string> all;
        section.getControls().forEach([&](const auto& control) { all.push_back(std::to_string(control.value)); });
        return joined(all);
    }
};
