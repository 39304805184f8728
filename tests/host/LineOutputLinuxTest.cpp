#include "host/terminal/LineOutput.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <string>

namespace Host
{
TEST(LineOutput, LeavesOutWhatNothingReadsAndSaysHowMuch)
{
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_NONBLOCK), 0);
    const auto readAll = [&] {
        std::string text;
        char bytes[4096];
        for (ssize_t size; (size = ::read(ends[0], bytes, sizeof bytes)) > 0;)
            text.append(bytes, static_cast<std::size_t>(size));
        return text;
    };
    ::fcntl(ends[1], F_SETFL, 0);  // as every shell makes it
    LineOutput output(ends[1]);
    constexpr int LINES = 100;
    const std::string line = std::string(999, 'x') + "\n";
    for (int i = 0; i < LINES; ++i) output.write(line);  // more than a pipe holds, though nothing reads
    std::string text = readAll();
    output.write("on\n");
    text += readAll();
    const std::size_t whole = text.find("...") / line.size();
    ASSERT_LT(whole, std::size_t{LINES});
    std::string expected;
    for (std::size_t i = 0; i < whole; ++i) expected += line;
    EXPECT_EQ(text, expected + "... " + std::to_string(LINES - whole) + " left out, because nothing read them\non\n");
    ::close(ends[0]);
    ::signal(SIGPIPE, SIG_IGN);
    output.write("to nobody\n");
    ::close(ends[1]);
}
}  // namespace Host
