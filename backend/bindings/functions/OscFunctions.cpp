#include "backend/bindings/functions/OscFunctions.h"

#include "backend/sections/oscillators/OscManager.h"

namespace Backend::FunctionManagement::Functions
{
void DataSelectOsc::execute() { orv().getOscManager().dataSelect(selectType); }
void ChangeOscPlaying::execute() { orv().getOscManager().changePlaying(selectType, value); }
void ChangeOscSpeed::execute() { orv().getOscManager().changeSpeed(selectType, value); }
}  // namespace Backend::FunctionManagement::Functions
