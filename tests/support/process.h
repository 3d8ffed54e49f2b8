// process.h: programs that a test starts, and the machine at the other end of a serial line.

#pragma once

#include "support/program.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

/// A program that was started: its process, and what it printed.
class Process
{
public:
    /// The words are those of a shell; `file` takes both outputs. `user`: other than the present one.
    Process(const std::string& words, std::string file, uid_t user = 0) : Output(std::move(file))
    {
        std::ofstream(Output).flush();
        Id = ::fork();
        if (Id != 0) return;
        const int output = ::open(Output.c_str(), O_WRONLY), input = ::open("/dev/null", O_RDONLY);
        ::dup2(input, 0);
        ::dup2(output, 1);
        ::dup2(output, 2);
        if (user != 0 && (::setgid(user) != 0 || ::setuid(user) != 0)) ::_exit(127);
        ::execl("/bin/sh", "sh", "-c", ("exec " + words).c_str(), nullptr);
        ::_exit(127);
    }
    void Interrupt() const { ::kill(Id, SIGINT); }
    /// Its exit status; -1 when a signal ended it.
    int Wait() const
    {
        int status = 0;
        ::waitpid(Id, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string Text() const { return BytesOf(Output); }
    /// Waits until it has printed a text.
    void AwaitText(const std::string& text) const
    {
        while (Text().find(text) == std::string::npos)
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }

private:
    std::string Output;
    pid_t Id = 0;
};

#ifdef CONTROL_SIM

/// control-sim on a pair of pseudo terminals, with a folder of its own.
class Machine
{
public:
    explicit Machine(const std::string& options)
        : Sim(CONTROL_SIM " --timeout 30 " + options + " -o " + Work / "taken", Work / "machine")
    {
        Sim.AwaitText("\n");
        const std::string text = Sim.Text();
        Device = text.substr(0, text.find('\n'));
    }

    /// The device of the line's other end.
    std::string Device;

    int Wait() const { return Sim.Wait(); }
    std::string Report() const { return Sim.Text(); }
    std::string Taken() const { return BytesOf(Work / "taken"); }
    /// A number of its report.
    double Figure(const std::string& name) const
    {
        const std::string text = Report();
        return std::atof(text.c_str() + text.find("\n" + name + ": ") + name.size() + 3);
    }

private:
    Folder Work;
    Process Sim;
};

#endif
