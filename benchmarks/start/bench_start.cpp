// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/comparison.h"

#include <sys/resource.h>
#include <sys/wait.h>

#include <cstdlib>
#include <spawn.h>
#include <string>
#include <unistd.h>

namespace {

constexpr double StartTarget = 1.02;

double seconds(const timeval &time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

// Seconds of processor time that the program has taken from its start to its end; less than 0 if it failed.
double run(std::string program, std::string task)
{
    char *const arguments[] = {program.data(), task.data(), nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ) != 0) {
        return -1;
    }
    int status = 0;
    rusage usage {};
    if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        return -1;
    }
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

Side starting(const char *program, const char *task)
{
    return [program, task](benchmark::State &state) {
        for (auto iteration : state) {
            static_cast<void>(iteration);
            const double time = run(program, task);
            if (time < 0) {
                state.SkipWithError("the program has failed");
                break;
            }
            state.SetIterationTime(time);
        }
    };
}

void compareStarts(const char *what, const char *task)
{
    compareByOwnTime(what, StartTarget, starting(VELA_STARTER, task), starting(VELA_BARE_STARTER, task));
}

} // namespace

int main(int argc, char *argv[])
{
    compareStarts("Start, library linked", "window");
    compareStarts("Start, five calls", "calls");
    compareStarts("Start, five calls and a first message", "message");
    return runComparisons(argc, argv);
}
