#include "host/session/SessionManager.h"

#include <lo/lo.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "platform/Mutex.h"
#include "platform/Thread.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr const char* ANNOUNCE = "/nsm/server/announce";
constexpr const char* OPEN = "/nsm/client/open";
constexpr const char* SAVE = "/nsm/client/save";
constexpr const char* REPLY = "/reply";
constexpr const char* REFUSAL = "/error";

constexpr lo_timetag NOW{0, 1};

constexpr const char* PROGRAM = "Orvane";
constexpr const char* EXECUTABLE = "orvane";  // that opens the session the next time, found by PATH
constexpr const char* CAPABILITIES = "";
constexpr int API_MAJOR = 1;
constexpr int API_MINOR = 0;

constexpr auto LONGEST_WAIT_FOR_A_SESSION = 5s;

enum Failure : int { GENERAL = -1, NOT_NOW = -8 };

// The library declares them all as `void*`.
using Address = std::unique_ptr<void, decltype(&lo_address_free)>;
using Server = std::unique_ptr<void, decltype(&lo_server_free)>;

bool speaksUdp(const Address& address) { return address && lo_address_get_protocol(address.get()) == LO_UDP; }
/// Sends and receives. Messages are received one after the other, by `announce` until the session is open and then by
/// the thread.
struct Osc {
    Mutex sending{};
    Address manager GUARDED_BY(sending);
    Server server;  // messages are sent from its port, so that the replies arrive there

    std::string refusal{};              // of the announcement
    SessionManager::Opening opening{};  // empty before the request to open a session
    std::function<void()> saveRequested{};
    const int stopEvent = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    Thread thread{};

    Osc(Address to, Server from) : manager(std::move(to)), server(std::move(from))
    {
        lo_server_add_method(server.get(), nullptr, nullptr, &Osc::handle, this);
    }

    ~Osc()
    {
        stop();
        ::close(stopEvent);
    }

    void stop()
    {
        eventfd_write(stopEvent, 1);
        thread.join();
    }

    void announce()
    {
        const MutexLock lock(sending);
        lo_send_from(manager.get(), server.get(), NOW, ANNOUNCE, "sssiii", PROGRAM, CAPABILITIES, EXECUTABLE, API_MAJOR,
                     API_MINOR, static_cast<int>(::getpid()));
    }

    void reply(const char* request, const std::string& error, Failure failure = GENERAL)
    {
        const MutexLock lock(sending);
        if (error.empty())
            lo_send_from(manager.get(), server.get(), NOW, REPLY, "ss", request, "OK");
        else
            lo_send_from(manager.get(), server.get(), NOW, REFUSAL, "sis", request, failure, error.c_str());
    }

    /// Called for each message; one that is unknown, or has other arguments, is ignored.
    static int handle(const char* path, const char* types, lo_arg** values, int, lo_message, void* self)
    {
        static_cast<Osc*>(self)->handle(path, types, values);
        return 0;
    }

    /// A text begins at the address of its argument, which need not be aligned as the union is.
    static const char* textOf(const lo_arg* value) { return reinterpret_cast<const char*>(value); }

    void handle(std::string_view path, std::string_view types, lo_arg** values)
    {
        if (path == OPEN && types.starts_with("sss"))
            handleOpening({textOf(values[0]), textOf(values[2])});
        else if (path == SAVE && saveRequested)
            saveRequested();
        else if (path == REFUSAL && types == "sis" && textOf(values[0]) == std::string_view(ANNOUNCE))
            refusal = textOf(values[2]);
    }

    /// The program plays in one session for as long as it runs.
    void handleOpening(SessionManager::Opening requested)
    {
        if (!opening.folder.empty())
            reply(OPEN, "Orvane plays in a session already", NOT_NOW);
        else if (!requested.folder.is_absolute())
            reply(OPEN, "the session's folder is not absolute");
        else
            opening = std::move(requested);
    }

    void run()
    {
        while (waitForMessage()) lo_server_recv_noblock(server.get(), 0);
    }

    /// False once `stop` was called.
    bool waitForMessage() const
    {
        std::array<pollfd, 2> waited{{{stopEvent, POLLIN, 0}, {lo_server_get_socket_fd(server.get()), POLLIN, 0}}};
        while (::poll(waited.data(), waited.size(), -1) < 0)
            if (errno != EINTR) return false;
        return waited[0].revents == 0;
    }
};

class NsmSessionManager final : public SessionManager
{
public:
    NsmSessionManager(Address manager, Server server) : osc(std::move(manager), std::move(server)) {}

    /// False if no session was opened, which is reported.
    bool waitForSession(const Report& report)
    {
        osc.announce();
        const auto deadline = std::chrono::steady_clock::now() + LONGEST_WAIT_FOR_A_SESSION;
        while (osc.opening.folder.empty()) {
            const auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
            if (!osc.refusal.empty())
                return report(" refused Orvane, so the program does not belong to a session: " + osc.refusal), false;
            if (left <= 0ms) return report(" does not answer, so the program does not belong to a session."), false;
            lo_server_recv_noblock(osc.server.get(), static_cast<int>(left.count()));
        }
        opening = osc.opening;
        return true;
    }

    void replyOpened(const std::string& error) override { osc.reply(OPEN, error); }
    void replySaved(const std::string& error) override { osc.reply(SAVE, error); }

    void startReceiving(std::function<void()> saveRequested) override
    {
        osc.saveRequested = std::move(saveRequested);
        osc.thread.start("orvane session", [this] { osc.run(); });
    }

    void stopReceiving() override { osc.stop(); }

private:
    Osc osc;
};
}  // namespace

std::unique_ptr<SessionManager> SessionManager::announce(const Report& report)
{
    const char* url = std::getenv("NSM_URL");
    if (url == nullptr || *url == '\0') return nullptr;
    const std::string here = std::string("The session manager at ") + url;
    Address address(lo_address_new_from_url(url), &lo_address_free);
    Server server(lo_server_new_with_proto(nullptr, LO_UDP, nullptr), &lo_server_free);
    if (!speaksUdp(address) || !server) {
        report(here + " cannot be reached, so the program does not belong to a session.");
        return nullptr;
    }
    auto manager = std::make_unique<NsmSessionManager>(std::move(address), std::move(server));
    if (!manager->waitForSession([&](const std::string& what) { report(here + what); })) return nullptr;
    return manager;
}
}  // namespace Host
