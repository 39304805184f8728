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
#include <mutex>
#include <string_view>
#include <utility>

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
constexpr const char* EXECUTABLE = "orvane";  // as it is found by whoever opens the session again
constexpr const char* CAPABILITIES = "";
constexpr int API_MAJOR = 1;
constexpr int API_MINOR = 0;

constexpr auto LONGEST_WAIT_FOR_A_SESSION = 5s;

enum Failure : int { GENERAL = -1, NOT_NOW = -8 };

// To the library they are all `void*`.
using Address = std::unique_ptr<void, decltype(&lo_address_free)>;
using Server = std::unique_ptr<void, decltype(&lo_server_free)>;

bool speaksUdp(const Address& address) { return address && lo_address_get_protocol(address.get()) == LO_UDP; }
}  // namespace

/// Both directions. The messages that come are taken one after the other, first by `join`, then by the thread.
struct SessionManager::Osc {
    Address manager;
    Server server;  // from whose port we send, because the answers come back to it
    std::mutex sending{};

    std::string refusal{};  // of the announcement
    Opening asked{};        // empty until it opens a session
    std::function<void()> saveRequested{};
    const int stopEvent = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    Thread thread{};

    Osc(Address to, Server from) : manager(std::move(to)), server(std::move(from))
    {
        lo_server_add_method(server.get(), nullptr, nullptr, &Osc::take, this);
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
        const std::lock_guard guard(sending);
        lo_send_from(manager.get(), server.get(), NOW, ANNOUNCE, "sssiii", PROGRAM, CAPABILITIES, EXECUTABLE, API_MAJOR,
                     API_MINOR, static_cast<int>(::getpid()));
    }

    void answer(const char* request, const std::string& whyNot, Failure failure = GENERAL)
    {
        const std::lock_guard guard(sending);
        if (whyNot.empty())
            lo_send_from(manager.get(), server.get(), NOW, REPLY, "ss", request, "OK");
        else
            lo_send_from(manager.get(), server.get(), NOW, REFUSAL, "sis", request, failure, whyNot.c_str());
    }

    /// Each message; what is not meant for us, or not understood, is left.
    static int take(const char* path, const char* types, lo_arg** values, int, lo_message, void* self)
    {
        static_cast<Osc*>(self)->take(path, types, values);
        return 0;
    }

    /// A text begins at four bytes, where none of the union's numbers may.
    static const char* textOf(const lo_arg* value) { return reinterpret_cast<const char*>(value); }

    void take(std::string_view path, std::string_view types, lo_arg** values)
    {
        if (path == OPEN && types.starts_with("sss"))
            takeOpening({textOf(values[0]), textOf(values[2])});
        else if (path == SAVE && saveRequested)
            saveRequested();
        else if (path == REFUSAL && types == "sis" && textOf(values[0]) == std::string_view(ANNOUNCE))
            refusal = textOf(values[2]);
    }

    /// The program plays in one session for as long as it runs.
    void takeOpening(Opening wanted)
    {
        if (!asked.folder.empty())
            answer(OPEN, "Orvane plays in a session already", NOT_NOW);
        else if (!wanted.folder.is_absolute())
            answer(OPEN, "the session's folder is not absolute");
        else
            asked = std::move(wanted);
    }

    void run()
    {
        while (waitForMessage()) lo_server_recv_noblock(server.get(), 0);
    }

    /// False when it is time to stop.
    bool waitForMessage() const
    {
        std::array<pollfd, 2> waited{{{stopEvent, POLLIN, 0}, {lo_server_get_socket_fd(server.get()), POLLIN, 0}}};
        while (::poll(waited.data(), waited.size(), -1) < 0)
            if (errno != EINTR) return false;
        return waited[0].revents == 0;
    }
};

std::unique_ptr<SessionManager> SessionManager::join(const Report& report)
{
    const char* url = std::getenv("NSM_URL");
    if (url == nullptr || *url == '\0') return nullptr;
    const std::string here = std::string("The session manager at ") + url;
    Address address(lo_address_new_from_url(url), &lo_address_free);
    Server server(lo_server_new_with_proto(nullptr, LO_UDP, nullptr), &lo_server_free);
    if (!speaksUdp(address) || !server) {
        report(here + " cannot be reached, so this is no part of a session.");
        return nullptr;
    }
    std::unique_ptr<SessionManager> manager(
        new SessionManager(std::make_unique<Osc>(std::move(address), std::move(server))));
    return manager->isOpened([&](const std::string& what) { report(here + what); }) ? std::move(manager) : nullptr;
}

SessionManager::SessionManager(std::unique_ptr<Osc> connection) : osc(std::move(connection)) {}

SessionManager::~SessionManager() = default;

bool SessionManager::isOpened(const Report& report)
{
    osc->announce();
    const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT_FOR_A_SESSION;
    while (osc->asked.folder.empty()) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(giveUp - std::chrono::steady_clock::now());
        if (!osc->refusal.empty())
            return report(" does not want Orvane, so this is no part of a session: " + osc->refusal), false;
        if (left <= 0ms) return report(" does not answer, so this is no part of a session."), false;
        lo_server_recv_noblock(osc->server.get(), static_cast<int>(left.count()));
    }
    opening = osc->asked;
    return true;
}

void SessionManager::replyOpened(const std::string& whyNot) { osc->answer(OPEN, whyNot); }

void SessionManager::replySaved(const std::string& whyNot) { osc->answer(SAVE, whyNot); }

void SessionManager::listen(std::function<void()> saveRequested)
{
    osc->saveRequested = std::move(saveRequested);
    osc->thread.start("orvane session", [this] { osc->run(); });
}

void SessionManager::stopListening() { osc->stop(); }
}  // namespace Host
