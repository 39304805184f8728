#include "tests/stage/FileFault.h"

#include <windows.h>

#include <atomic>

#include "tests/stage/FullDisk.h"

namespace
{
FileFault::Kind armed = FileFault::Kind::none;
int callsToGo = -1;
std::string names;
bool watching = false;
std::atomic<bool> isDiskFull = false;

bool fails(const char* name)
{
    if (!watching) return false;
    names += (names.empty() ? "" : " ") + std::string(name);
    return callsToGo-- == 0 && armed != FileFault::Kind::none;
}

template <class Result>
Result failure(Result result)
{
    if (armed == FileFault::Kind::death) TerminateProcess(GetCurrentProcess(), 1);
    SetLastError(ERROR_DISK_FULL);
    return result;
}

/// The system's function, which a pointer of this file hides from the program.
template <class Function>
Function* real(const char* name)
{
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

HANDLE WINAPI openFile(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security, DWORD creation,
                       DWORD flags, HANDLE like)
{
    static const auto open = real<decltype(CreateFileW)>("CreateFileW");
    if ((access & GENERIC_WRITE) != 0 && fails("open")) return failure(INVALID_HANDLE_VALUE);
    return open(path, access, share, security, creation, flags, like);
}

BOOL WINAPI writeFile(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written, LPOVERLAPPED overlapped)
{
    static const auto write = real<decltype(WriteFile)>("WriteFile");
    if (isDiskFull) {
        SetLastError(ERROR_DISK_FULL);
        return FALSE;
    }
    if (!fails("write")) return write(file, bytes, size, written, overlapped);
    write(file, bytes, size / 2, written, overlapped);
    return failure(FALSE);
}

BOOL WINAPI flushFile(HANDLE file)
{
    static const auto flush = real<decltype(FlushFileBuffers)>("FlushFileBuffers");
    return fails("flush") ? failure(FALSE) : flush(file);
}

BOOL WINAPI moveFile(LPCWSTR from, LPCWSTR to, DWORD flags)
{
    static const auto move = real<decltype(MoveFileExW)>("MoveFileExW");
    return fails("rename") ? failure(FALSE) : move(from, to, flags);
}

BOOL WINAPI removeFile(LPCWSTR path)
{
    static const auto remove = real<decltype(DeleteFileW)>("DeleteFileW");
    return fails("unlink") ? failure(FALSE) : remove(path);
}
}  // namespace

FullDisk::FullDisk(std::uint64_t) { isDiskFull = true; }

FullDisk::~FullDisk() { isDiskFull = false; }

FileFault::FileFault(Kind kind, int call)
{
    armed = kind;
    callsToGo = call;
    names.clear();
    watching = true;
}

FileFault::~FileFault() { watching = false; }

bool FileFault::hasHappened() const { return callsToGo < 0; }

std::string FileFault::calls() const { return names; }

const char* const FileFault::REPLACEMENT = "open write flush rename";

// The program calls the system through pointers of these names. The linker takes ours before those of the import
// library.
extern "C" {
[[gnu::used]] decltype(&openFile) pointerToOpen asm("__imp__CreateFileW@28") = &openFile;
[[gnu::used]] decltype(&writeFile) pointerToWrite asm("__imp__WriteFile@20") = &writeFile;
[[gnu::used]] decltype(&flushFile) pointerToFlush asm("__imp__FlushFileBuffers@4") = &flushFile;
[[gnu::used]] decltype(&moveFile) pointerToMove asm("__imp__MoveFileExW@12") = &moveFile;
[[gnu::used]] decltype(&removeFile) pointerToRemove asm("__imp__DeleteFileW@4") = &removeFile;
}
