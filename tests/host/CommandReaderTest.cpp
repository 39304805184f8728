#include "host/run/CommandReader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <memory>
#include <vector>

#include "platform/Event.h"

namespace Host
{
namespace
{
/// What a reader makes of a text, once all of it has been read.
struct Reading {
    std::vector<Command> commands;
    std::vector<std::string> complaints;

    explicit Reading(const std::string& text)
    {
        int ends[2];
        if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
        Event marked;
        {
            const CommandReader reader(
                ends[0], "stdin",
                [&](const Command& command) {
                    commands.push_back(command);
                    if (command == MARK) marked.set();
                },
                [&](const std::string& line) { complaints.push_back(line); });
            write(ends[1], text);
            ::close(ends[1]);
            marked.wait();
        }
        ::close(ends[0]);
        commands.pop_back();
    }

    static void write(int end, const std::string& text)
    {
        for (std::size_t at = 0; at < text.size();)
            at += static_cast<std::size_t>(::write(end, &text[at], text.size() - at));
    }

    inline static const Command MARK = EnableCommand{PortDirection::input, 99, true};
};

constexpr const char* LAST = "enable input 99 on";
}  // namespace

TEST(CommandReader, ABadLineIsNamedAndTheNextIsRead)
{
    const Reading reading("midi 0 90 3C 64\n\n# a comment\nmidi 0 90 3C 64 70\r\nplay 1 0 -1 144 60 100\n" +
                          std::string(LAST));
    EXPECT_EQ(reading.commands,
              (std::vector<Command>{MidiCommand{0, 0x90, 0, 60, 100}, PlayCommand{1, 0, -1, 144, 60, 100}}));
    ASSERT_EQ(reading.complaints.size(), 1u);
    EXPECT_TRUE(reading.complaints[0].starts_with("stdin:4: ")) << reading.complaints[0];
}

TEST(CommandReader, ALineWithoutEndIsReadPast)
{
    const Reading reading(std::string(1 << 20, 'x') + "\n" + LAST + "\n");
    ASSERT_EQ(reading.complaints.size(), 1u);
    EXPECT_EQ(reading.complaints[0], "stdin:1: the line is too long");
}

TEST(CommandReader, EndsWhileItsInputIsStillOpen)
{
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    {
        const CommandReader reader(
            ends[0], "stdin", [](const Command&) {}, [](const std::string&) {});
    }
    ::close(ends[0]);
    ::close(ends[1]);
}
}  // namespace Host
