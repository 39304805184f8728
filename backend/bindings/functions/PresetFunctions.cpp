#include "backend/bindings/functions/PresetFunctions.h"

#include "backend/sections/computerinput/ComputerInputManager.h"
#include "backend/sections/controls/ControlManager.h"
#include "backend/sections/joystick/JoystickManager.h"
#include "backend/sections/layers/LayerManager.h"
#include "backend/sections/midiinput/MidiInputManager.h"
#include "backend/sections/oscillators/OscManager.h"

namespace Backend::FunctionManagement::Functions
{
void LoadOscillatorPreset::execute() { orv().getOscManager().loadPreset(preset); }
void LoadJoystickInputPreset::execute() { orv().getJoystickManager().loadPreset(preset); }
void LoadMidiInputPreset::execute() { orv().getMidiInputManager().loadPreset(preset); }
void LoadComputerInputPreset::execute() { orv().getComputerInputManager().loadPreset(preset); }
void LoadControlPreset::execute() { orv().getControlManager().loadPreset(preset); }
void LoadLayerPreset::execute() { orv().getLayerManager().loadPreset(preset); }
}  // namespace Backend::FunctionManagement::Functions
