#pragma once

#include <string>
#include <vector>

#include "backend/sections/controls/ControlManager.h"
#include "tests/stage/Stage.h"

using Backend::MidiEngine::MessageType;
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

/// The backend at rest with these controls, which may be called from here.
struct ControlStage : Stage {
    explicit ControlStage(const std::vector<Backend::Controls::Control>& all)
    {
        controls().mergeControls(all, false, true);
    }

    Backend::Controls::ControlManager& controls() { return orv->getControlManager(); }

    /// A control is moved.
    void move(const Cell& cell, std::int32_t value)
    {
        orv->getControlMessageManager().postSetValue(cell, value);
        rest();
    }
    void link(const std::vector<Cell>& cells)
    {
        for (const Cell& cell : cells) orv->getControlMessageManager().postSetSelected(cell, true);
        rest();
    }

    /// All values in the order of the cells, after whatever still plays.
    std::string values()
    {
        playSlices();
        std::string text;
        controls().getControls().forEach([&](const Backend::Controls::Control& control) {
            text += (text.empty() ? "" : " ") + std::to_string(control.value);
        });
        return text;
    }
    std::string selected()
    {
        std::string text;
        controls().getControls().forEach([&](const Backend::Controls::Control& control) {
            if (control.selected) text += (text.empty() ? "" : " ") + control.cell.toXmlString();
        });
        return text;
    }
};
