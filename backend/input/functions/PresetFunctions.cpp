#include "backend/input/functions/PresetFunctions.h"

#include "backend/input/computer/ComputerInputManager.h"
#include "backend/input/controls/ControlManager.h"
#include "backend/input/joystick/JoystickManager.h"
#include "backend/input/midi/MidiInputManager.h"
#include "backend/layers/LayerManager.h"
#include "backend/layers/OscManager.h"

namespace Backend::FunctionManagement::Functions
{
void LoadOscillatorPreset::execute() { orv().getOscManager().loadPreset(preset); }
void LoadJoystickInputPreset::execute() { orv().getJoystickManager().loadPreset(preset); }
void LoadMidiInputPreset::execute() { orv().getMidiInputManager().loadPreset(preset); }
void LoadComputerInputPreset::execute() { orv().getComputerInputManager().loadPreset(preset); }
void LoadControlPreset::execute() { orv().getControlManager().loadPreset(preset); }
void LoadLayerPreset::execute() { orv().getLayerManager().loadPreset(preset); }
}  // namespace Backend::FunctionManagement::Functions
