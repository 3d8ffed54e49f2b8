// outcome.h: what a command gives back to the shell.

#pragma once

#include <string>

constexpr int StatusDone = 0;
/// The program under check has messages.
constexpr int StatusMessages = 1;
/// The command could not be carried out.
constexpr int StatusFailed = 2;

struct Outcome {
    int Status = StatusDone;
    /// Standard output; nothing of it is printed when the command failed.
    std::string Output = {};
    /// One line for standard error that says why it failed.
    std::string Why = {};
};

inline Outcome Failed(std::string why)
{
    return {StatusFailed, "", std::move(why)};
}
