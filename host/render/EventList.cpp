#include "host/render/EventList.h"

namespace Host
{
std::string formatEventList(const std::vector<PlayedEvent>& events)
{
    std::string text = "ppq,output,status,d1,d2\n";
    for (const auto& [ppq, event] : events)
        text += std::to_string(ppq) + "," + std::to_string(event.getOutput()) + "," +
                std::to_string(event.getStatusWithChannel()) + "," + std::to_string(event.getD1()) + "," +
                std::to_string(event.getD2()) + "\n";
    return text;
}
}  // namespace Host
