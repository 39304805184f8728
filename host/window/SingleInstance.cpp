#include "host/window/SingleInstance.h"

#include <optional>
#include <string_view>

namespace Host
{
namespace
{
// The request is this text, then the path of each file, each ended by a zero byte. The reply is the text.
constexpr std::string_view GREETING("orvane window 1\0", 16);

std::string pack(const std::vector<std::string>& files)
{
    std::string text(GREETING);
    for (const std::string& file : files) text += file + '\0';
    return text;
}

/// None if `pack` did not make it.
std::optional<std::vector<std::string>> unpack(std::string_view text)
{
    if (!text.starts_with(GREETING) || !text.ends_with('\0')) return std::nullopt;
    std::vector<std::string> files;
    for (text.remove_prefix(GREETING.size()); !text.empty(); text.remove_prefix(files.back().size() + 1))
        files.emplace_back(text.substr(0, text.find('\0')));
    return files;
}
}  // namespace

std::unique_ptr<SingleInstance> SingleInstance::acquire()
{
    auto listener = InstanceListener::open();
    return listener ? std::unique_ptr<SingleInstance>(new SingleInstance(std::move(listener))) : nullptr;
}

SingleInstance::Result SingleInstance::notify(const std::vector<std::string>& files)
{
    if (!InstanceListener::isPossible()) return Result::impossible;
    const auto window = InstanceChannel::connect();
    const bool accepted = window && window->send(pack(files)) && window->receive() == GREETING;
    return accepted ? Result::accepted : Result::noAnswer;
}

SingleInstance::SingleInstance(std::unique_ptr<InstanceListener> opened) : listener(std::move(opened)) {}

SingleInstance::~SingleInstance() { stopListening(); }

void SingleInstance::listen(Accept accept)
{
    thread.start("orvane instance", [this, call = std::move(accept)] { run(call); });
}

void SingleInstance::stopListening()
{
    listener->stop();
    thread.join();
}

void SingleInstance::run(const Accept& accept) const
{
    while (const auto other = listener->accept()) {
        const auto files = unpack(other->receive());
        if (files && accept(*files)) other->send(GREETING);
    }
}
}  // namespace Host
