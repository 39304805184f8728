#include "backend/input/functions/PresetFunctions.h"

#include "backend/input/computer/ComputerInputManager.h"
#include "backend/input/midi/MidiInputManager.h"
#include "backend/input/controls/ControlManager.h"
#include "backend/layers/LayerManager.h"
#include "backend/layers/OscManager.h"
#include "platform/DbgStream.h"

namespace Backend::FunctionManagement::Functions
{
namespace
{
void tellNoSection(const FunctionInfo& function)
{
    WindowsLib::DbgStream() << function.displayName << ": there is no such section";
}
}  // namespace

void LoadOscillatorPreset::execute() { orv().getOscManager().loadPreset(preset); }
void LoadJoystickInputPreset::execute() { tellNoSection(info); }
void LoadComputerInputPreset::execute() { orv().getComputerInputManager().loadPreset(preset); }
void LoadMidiInputPreset::execute() { orv().getMidiInputManager().loadPreset(preset); }
void LoadControlPreset::execute() { orv().getControlManager().loadPreset(preset); }
void LoadLayerPreset::execute() { orv().getLayerManager().loadPreset(preset); }
}  // namespace Backend::FunctionManagement::Functions
