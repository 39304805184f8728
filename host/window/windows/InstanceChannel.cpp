#include "host/window/InstanceChannel.h"

#include <windows.h>

#include <sddl.h>

#include <array>
#include <functional>
#include <optional>
#include <utility>

#include "platform/Folders.h"

namespace Host
{
namespace
{
constexpr DWORD LONGEST_WAIT = 2000;  // milliseconds
constexpr DWORD BUFFER = 65536;
constexpr std::size_t LONGEST_TEXT = 1 << 21;

struct CloseHandleOf {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseHandleOf>;

Handle owned(HANDLE handle) { return Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle); }

/// The user of a process as text; empty if that cannot be found out.
std::wstring userOf(HANDLE process)
{
    HANDLE token = nullptr;
    if (OpenProcessToken(process, TOKEN_QUERY, &token) == 0) return {};
    const Handle owner(token);
    std::array<std::byte, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> bytes;
    DWORD size = 0;
    if (GetTokenInformation(token, TokenUser, bytes.data(), bytes.size(), &size) == 0) return {};
    wchar_t* text = nullptr;
    if (ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(bytes.data())->User.Sid, &text) == 0) return {};
    std::wstring user = text;
    LocalFree(text);
    return user;
}

std::wstring thisUser() { return userOf(GetCurrentProcess()); }

/// Of the log-on session and the user's folders; the same in every process of this program.
std::wstring nameOfUser()
{
    DWORD session = 0;
    ProcessIdToSessionId(GetCurrentProcessId(), &session);
    const auto folders = std::hash<std::string>{}(Folders::getSettings() + Folders::getLocalApplicationData());
    return L"orvane-" + std::to_wstring(session) + L"-" + std::to_wstring(folders);
}

std::wstring pipePath() { return L"\\\\.\\pipe\\" + nameOfUser(); }

/// A read or write that does not wait for ever.
class Operation
{
public:
    explicit Operation(HANDLE file) : pipe(file) { overlapped.hEvent = done.get(); }

    OVERLAPPED* get() { return &overlapped; }
    HANDLE event() const { return done.get(); }

    enum class Result { failed, whole, part };

    /// `succeeded` is the result of the call that began it. A part of a message means that more of it waits.
    Result finish(BOOL succeeded, DWORD& size)
    {
        if (succeeded == 0 && GetLastError() != ERROR_IO_PENDING && GetLastError() != ERROR_MORE_DATA)
            return Result::failed;
        if (WaitForSingleObject(event(), LONGEST_WAIT) != WAIT_OBJECT_0) CancelIoEx(pipe, &overlapped);
        if (GetOverlappedResult(pipe, &overlapped, &size, TRUE) != 0) return Result::whole;
        return GetLastError() == ERROR_MORE_DATA ? Result::part : Result::failed;
    }

private:
    const HANDLE pipe;
    const Handle done = owned(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    OVERLAPPED overlapped{};
};

/// A text is one message of the pipe.
class PipeChannel final : public InstanceChannel
{
public:
    explicit PipeChannel(Handle connected) : pipe(std::move(connected)) {}

    bool send(std::string_view text) override
    {
        Operation operation(pipe.get());
        DWORD size = 0;
        const BOOL begun =
            WriteFile(pipe.get(), text.data(), static_cast<DWORD>(text.size()), nullptr, operation.get());
        return operation.finish(begun, size) == Operation::Result::whole && size == text.size();
    }

    std::string receive() override
    {
        std::string text;
        std::array<char, 4096> bytes;
        while (text.size() < LONGEST_TEXT) {
            Operation operation(pipe.get());
            DWORD size = 0;
            const BOOL begun = ReadFile(pipe.get(), bytes.data(), bytes.size(), nullptr, operation.get());
            const auto result = operation.finish(begun, size);
            if (result == Operation::Result::failed) return {};
            text.append(bytes.data(), size);
            if (result == Operation::Result::whole) break;
        }
        return text;
    }

private:
    const Handle pipe;
};

/// A named pipe that only this user can connect to, and a mutex whose existence is the lock.
class PipeListener final : public InstanceListener
{
public:
    explicit PipeListener(Handle taken) : lock(std::move(taken)), next(createPipe(FILE_FLAG_FIRST_PIPE_INSTANCE)) {}

    bool isOpen() const { return next != nullptr; }

    std::unique_ptr<InstanceChannel> accept() override
    {
        if (!next || !waitForConnection()) {
            next.reset();
            return nullptr;
        }
        Handle connected = std::exchange(next, createPipe(0));
        return std::make_unique<PipeChannel>(std::move(connected));
    }

    void stop() override { SetEvent(stopEvent.get()); }

private:
    static Handle createPipe(DWORD flags)
    {
        const std::wstring user = thisUser();
        const std::wstring access = L"D:P(A;;GA;;;" + user + L")";
        SECURITY_ATTRIBUTES security{sizeof security, nullptr, FALSE};
        if (ConvertStringSecurityDescriptorToSecurityDescriptorW(access.c_str(), SDDL_REVISION_1,
                                                                 &security.lpSecurityDescriptor, nullptr) == 0)
            return nullptr;
        const HANDLE pipe =
            CreateNamedPipeW(pipePath().c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED | flags,
                             PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS,
                             PIPE_UNLIMITED_INSTANCES, BUFFER, BUFFER, 0, &security);
        LocalFree(security.lpSecurityDescriptor);
        return owned(pipe);
    }

    /// False once `stop` was called.
    bool waitForConnection()
    {
        Operation operation(next.get());
        if (ConnectNamedPipe(next.get(), operation.get()) != 0) return true;
        if (GetLastError() == ERROR_PIPE_CONNECTED) return WaitForSingleObject(stopEvent.get(), 0) != WAIT_OBJECT_0;
        if (GetLastError() != ERROR_IO_PENDING) return false;
        const std::array<HANDLE, 2> waited{stopEvent.get(), operation.event()};
        const DWORD which = WaitForMultipleObjects(waited.size(), waited.data(), FALSE, INFINITE);
        if (which != WAIT_OBJECT_0 + 1) CancelIoEx(next.get(), operation.get());
        DWORD size = 0;
        return GetOverlappedResult(next.get(), operation.get(), &size, TRUE) != 0 && which == WAIT_OBJECT_0 + 1;
    }

    const Handle lock;
    const Handle stopEvent = owned(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    Handle next;  // what the next connection gets
};

bool isOwnUsers(HANDLE pipe)
{
    ULONG id = 0;
    if (GetNamedPipeServerProcessId(pipe, &id) == 0) return false;
    const Handle process = owned(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
    return process && userOf(process.get()) == thisUser();
}
}  // namespace

std::unique_ptr<InstanceChannel> InstanceChannel::connect()
{
    const std::wstring path = pipePath();
    if (WaitNamedPipeW(path.c_str(), LONGEST_WAIT) == 0) return nullptr;
    // The other end may find out who this is, but not act for this user.
    Handle pipe = owned(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_OVERLAPPED | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr));
    DWORD mode = PIPE_READMODE_MESSAGE;
    if (!pipe || SetNamedPipeHandleState(pipe.get(), &mode, nullptr, nullptr) == 0 || !isOwnUsers(pipe.get()))
        return nullptr;
    return std::make_unique<PipeChannel>(std::move(pipe));
}

bool InstanceListener::isPossible() { return !thisUser().empty(); }

std::unique_ptr<InstanceListener> InstanceListener::open()
{
    Handle lock = owned(CreateMutexW(nullptr, FALSE, (L"Local\\" + nameOfUser()).c_str()));
    if (!lock || GetLastError() == ERROR_ALREADY_EXISTS) return nullptr;
    auto listener = std::make_unique<PipeListener>(std::move(lock));
    return listener->isOpen() ? std::move(listener) : nullptr;
}
}  // namespace Host
