#include "host/run/RunOptions.h"

#include <algorithm>

#include "api/Bank.h"
#include "host/common/InputError.h"
#include "host/system/ClientName.h"
#include "host/terminal/StandardError.h"
#include "platform/Path.h"

namespace Host
{
namespace
{
/// Throws InputError unless every file can be loaded and the last bank has a program of that number.
void checkSetup(const Setup& setup)
{
    for (const std::string& file : setup.loads) checkSetupFile(pathOf(file));
    const auto bank = std::find_if(setup.loads.rbegin(), setup.loads.rend(),
                                   [](const std::string& file) { return file.ends_with(".bnk"); });
    if (bank == setup.loads.rend()) return;
    if (const auto programs = Backend::Bank::fromFile(*bank).programNames.size();
        static_cast<std::size_t>(setup.number) >= programs)
        throw InputError(*bank + ": there is no program " + std::to_string(setup.number) + ", it has " +
                         std::to_string(programs));
}
}  // namespace

std::unique_ptr<Session> openSession(RunOptions& options)
{
    auto session = Session::open(options.setup, options.client, reportOnStandardError);
    options.session = session.get();
    return session;
}

std::vector<Connection> parseConnections(const std::vector<std::string>& texts)
{
    std::vector<Connection> connections;
    for (const std::string& text : texts) {
        const auto sign = text.find('=');
        if (sign == std::string::npos || sign == 0 || sign + 1 == text.size())
            throw InputError("--connect: '" + text + "' is not two port names with a = between them");
        connections.push_back({text.substr(0, sign), text.substr(sign + 1)});
    }
    return connections;
}

void checkClientName(const std::string& name)
{
    if (!isClientName(name))
        throw InputError("--client: a name has 1 to " + std::to_string(longestClientName()) + " bytes and no colon");
}

void checkRunOptions(const RunOptions& options)
{
    checkClientName(options.client);
    checkSetup(options.setup);
    parseConnections(options.connections);
}
}  // namespace Host
