#include "backend/input/functions/OscFunctions.h"

#include "platform/DbgStream.h"

namespace Backend::FunctionManagement::Functions
{
namespace
{
void tellNoOscillator(const FunctionInfo& function)
{
    WindowsLib::DbgStream() << function.displayName << ": there is no oscillator";
}
}  // namespace

void DataSelectOsc::execute() { tellNoOscillator(info); }
void ChangeOscPlaying::execute() { tellNoOscillator(info); }
void ChangeOscSpeed::execute() { tellNoOscillator(info); }
}  // namespace Backend::FunctionManagement::Functions
