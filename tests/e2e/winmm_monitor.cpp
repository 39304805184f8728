// Takes the place of the system's winmm.dll beside a program: one MIDI output, "Monitor", which appends each message
// that it gets as a line to the file that ORVANE_MONITOR names. There is nothing else: no input, no joystick.
#define _WINMM_
#include <windows.h>

#include <mmsystem.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>

namespace
{
HMIDIOUT theOutput() { return reinterpret_cast<HMIDIOUT>(1); }

void note(const BYTE* bytes, std::size_t size)
{
    const char* const path = std::getenv("ORVANE_MONITOR");
    std::FILE* const file = path != nullptr ? std::fopen(path, "a") : nullptr;
    if (file == nullptr) return;
    for (std::size_t i = 0; i < size; ++i) std::fprintf(file, i == 0 ? "%02x" : " %02x", bytes[i]);
    std::fputs("\n", file);
    std::fclose(file);
}
}  // namespace

extern "C" {
UINT WINAPI midiOutGetNumDevs() { return 1; }
MMRESULT WINAPI midiOutGetDevCapsA(UINT_PTR, LPMIDIOUTCAPSA caps, UINT)
{
    *caps = {};
    std::snprintf(caps->szPname, MAXPNAMELEN, "Monitor");
    return MMSYSERR_NOERROR;
}
MMRESULT WINAPI midiOutGetDevCapsW(UINT_PTR, LPMIDIOUTCAPSW caps, UINT)
{
    *caps = {};
    std::wcscpy(caps->szPname, L"Monitor");
    return MMSYSERR_NOERROR;
}
MMRESULT WINAPI midiOutOpen(LPHMIDIOUT output, UINT, DWORD_PTR, DWORD_PTR, DWORD)
{
    *output = theOutput();
    return MMSYSERR_NOERROR;
}
MMRESULT WINAPI midiOutClose(HMIDIOUT) { return MMSYSERR_NOERROR; }
MMRESULT WINAPI midiOutReset(HMIDIOUT) { return MMSYSERR_NOERROR; }
MMRESULT WINAPI midiOutShortMsg(HMIDIOUT, DWORD message)
{
    const BYTE bytes[] = {static_cast<BYTE>(message), static_cast<BYTE>(message >> 8),
                          static_cast<BYTE>(message >> 16)};
    note(bytes, sizeof bytes);
    return MMSYSERR_NOERROR;
}
MMRESULT WINAPI midiOutPrepareHeader(HMIDIOUT, LPMIDIHDR header, UINT)
{
    header->dwFlags |= MHDR_PREPARED;
    return MMSYSERR_NOERROR;
}
MMRESULT WINAPI midiOutUnprepareHeader(HMIDIOUT, LPMIDIHDR, UINT) { return MMSYSERR_NOERROR; }
MMRESULT WINAPI midiOutLongMsg(HMIDIOUT, LPMIDIHDR header, UINT)
{
    note(reinterpret_cast<const BYTE*>(header->lpData), header->dwBufferLength);
    header->dwFlags |= MHDR_DONE;
    return MMSYSERR_NOERROR;
}

UINT WINAPI midiInGetNumDevs() { return 0; }
MMRESULT WINAPI midiInGetDevCapsA(UINT_PTR, LPMIDIINCAPSA, UINT) { return MMSYSERR_BADDEVICEID; }
MMRESULT WINAPI midiInGetDevCapsW(UINT_PTR, LPMIDIINCAPSW, UINT) { return MMSYSERR_BADDEVICEID; }
MMRESULT WINAPI midiInOpen(LPHMIDIIN, UINT, DWORD_PTR, DWORD_PTR, DWORD) { return MMSYSERR_BADDEVICEID; }
MMRESULT WINAPI midiInClose(HMIDIIN) { return MMSYSERR_INVALHANDLE; }
MMRESULT WINAPI midiInStart(HMIDIIN) { return MMSYSERR_INVALHANDLE; }
MMRESULT WINAPI midiInStop(HMIDIIN) { return MMSYSERR_INVALHANDLE; }
MMRESULT WINAPI midiInReset(HMIDIIN) { return MMSYSERR_INVALHANDLE; }
MMRESULT WINAPI midiInAddBuffer(HMIDIIN, LPMIDIHDR, UINT) { return MMSYSERR_INVALHANDLE; }
MMRESULT WINAPI midiInPrepareHeader(HMIDIIN, LPMIDIHDR, UINT) { return MMSYSERR_INVALHANDLE; }
MMRESULT WINAPI midiInUnprepareHeader(HMIDIIN, LPMIDIHDR, UINT) { return MMSYSERR_INVALHANDLE; }

MMRESULT WINAPI timeBeginPeriod(UINT) { return TIMERR_NOERROR; }
MMRESULT WINAPI timeEndPeriod(UINT) { return TIMERR_NOERROR; }
MMRESULT WINAPI timeSetEvent(UINT, UINT, LPTIMECALLBACK, DWORD_PTR, UINT) { return 0; }
MMRESULT WINAPI timeKillEvent(UINT) { return TIMERR_NOERROR; }
UINT WINAPI joyGetNumDevs() { return 0; }
MMRESULT WINAPI joyGetDevCapsW(UINT_PTR, LPJOYCAPSW, UINT) { return JOYERR_PARMS; }
MMRESULT WINAPI joyGetPosEx(UINT, LPJOYINFOEX) { return JOYERR_UNPLUGGED; }
BOOL WINAPI PlaySoundW(LPCWSTR, HMODULE, DWORD) { return FALSE; }
}
