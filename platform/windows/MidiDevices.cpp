#include "platform/MidiDevices.h"

#include <windows.h>
// After windows.h
#include <mmsystem.h>

#include "platform/windows/Wide.h"

std::vector<std::string> getMidiInputDevices()
{
    std::vector<std::string> names;
    const UINT count = midiInGetNumDevs();
    for (UINT device = 0; device < count; ++device)
        if (MIDIINCAPSW description; midiInGetDevCapsW(device, &description, sizeof description) == MMSYSERR_NOERROR)
            names.push_back(narrow(description.szPname));
    return names;
}
