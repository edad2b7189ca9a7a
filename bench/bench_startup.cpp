#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "ratio_reporter.h"

// From the start of a process to its first painted window: the gallery's page of buttons against an equal
// window of Qt's widgets, on the X server where there is one. Both programs say "ready" when they have
// painted.

namespace {

constexpr int kRounds = 25;

[[noreturn]] void Fail(const std::string& program)
{
    std::fprintf(stderr, "%s did not show its window\n", program.c_str());
    std::exit(1);
}

/// In the child: becomes the program, which writes its output to the pipe.
[[noreturn]] void Become(const std::vector<std::string>& command, int output)
{
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    dup2(output, STDOUT_FILENO);
    // What the programs warn of is not for this table.
    if (!std::freopen("/dev/null", "w", stderr))
        _exit(1);
    execv(arguments[0], arguments.data());
    _exit(127);
}

/// Seconds from the start of a program until it is ready; the program is ended.
double SecondsToShow(const std::vector<std::string>& command)
{
    int ends[2];
    if (pipe(ends) != 0)
        Fail(command[0]);
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0)
        Become(command, ends[1]);
    close(ends[1]);
    std::string output;
    char block[4096];
    while (output.find("ready\n") == std::string::npos) {
        const ssize_t count = read(ends[0], block, sizeof block);
        if (count <= 0)
            Fail(command[0]);
        output.append(block, static_cast<std::size_t>(count));
    }
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    close(ends[0]);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    return passed.count();
}

}  // namespace

int main()
{
    setenv("QVUI_DISPLAY", std::getenv("DISPLAY") ? "sdl" : "headless", 1);
    const std::vector<std::string> gallery{QVUI_GALLERY, "--page", "buttons"};
    const std::vector<std::string> peer{QVUI_STARTUP_PEER, QVUI_GALLERY_IMAGES};
    double ours = std::numeric_limits<double>::max();
    double theirs = ours;
    for (int i = 0; i < kRounds; ++i) {
        ours = std::min(ours, SecondsToShow(gallery));
        theirs = std::min(theirs, SecondsToShow(peer));
    }
    std::printf("The first page is painted %.0f ms after the start\n", ours * 1000);
    qvui::bench::PrintRatio("The gallery's first page", "an equal window of Qt's", ours / theirs, 1.0);
    return 0;
}
