// The line itself: what goes over it and at what pace. The real port is tested against control-sim, which
// plays the machine at the other end of a pair of pseudo terminals.

#include "platform/port.h"
#include "serial/transmit.h"
#include "support/program.h"

#include <csignal>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

TEST(Line, TakesWhatTheMachineNeeds)
{
    const struct {
        const char* Text;
        bool Filter;
        std::vector<std::string> Lines;
    } cases[] = {
        {"", true, {}},
        {"notes\r\n;%\r\n%\r\n;x\r\n\r\n   M\r\n", true, {"%", "   M"}},
        {"notes\r\n;%\r\n%\r\n;x\r\n\r\n   M", false, {"notes", "%", "   M"}},
        {"no symbol\r\n   M\r\n", true, {}},
        {"%\r\n1234567890123456789012345678901234\r\n", true, {"%", "123456789012345678901234567890"}},
        {"a\rb\r\rc\nd\r\n", false, {"a", "b", "c\nd"}},
        {"%\r\n                                 x\r\n", true, {"%", std::string(30, ' ')}},
    };
    for (const auto& c : cases) EXPECT_EQ(LinesToSend(c.Text, c.Filter), c.Lines) << c.Text;
    EXPECT_EQ(RowOfLine("   N05 G00", MachineKind::MK2), 6);
    EXPECT_EQ(RowOfLine("    05 00", MachineKind::MK4), 6);
    EXPECT_EQ(RowOfLine("   105 00", MachineKind::F1), 106);
    for (const char* line : {"", "%", "   M", "    N` G`"})
        EXPECT_EQ(RowOfLine(line, MachineKind::MK4), 1) << line;
}

TEST(Line, KnowsItsParametersAndItsPace)
{
    for (const char* text :
         {"", "300", "300,N,8", "301,N,8,1", "300,n,8,1", "300,N,6,1", "300,N,8,1,", "300,N,8,3"})
        EXPECT_FALSE(ReadLineParameters(text)) << text;
    EXPECT_DOUBLE_EQ(ReadLineParameters("300,N,8,1")->CharacterTime(), 10.0 / 300);
    EXPECT_DOUBLE_EQ(ReadLineParameters("110,E,7,2")->CharacterTime(), 11.0 / 110);

    // Lines follow each other without a gap as long as somebody wakes in time, and begin anew behind one.
    LinePace pace;
    const auto start = LinePace::Clock::now();
    pace.Add(30, start);
    EXPECT_GE(pace.WhenEmpty() - start, 1s);
    EXPECT_LT(pace.RoomAt(), pace.WhenEmpty());
    pace.Add(30, pace.RoomAt());
    EXPECT_GE(pace.WhenEmpty() - start, 2s);
    EXPECT_LT(pace.WhenEmpty() - start, 2001ms);
    pace.Add(30, start + 5s);
    EXPECT_GE(pace.WhenEmpty() - start, 6s);
}

#ifdef CONTROL_SIM

/// A program that was started: its process, and what it printed.
class Process
{
public:
    Process(const std::string& words, std::string file) : Output(std::move(file))
    {
        std::ofstream(Output).flush();
        Id = ::fork();
        if (Id != 0) return;
        ::execl("/bin/sh", "sh", "-c", ("exec " + words + " >'" + Output + "' 2>&1 </dev/null").c_str(),
                nullptr);
        ::_exit(127);
    }
    void Interrupt() const { ::kill(Id, SIGINT); }
    int Wait() const
    {
        int status = 0;
        ::waitpid(Id, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string Text() const { return BytesOf(Output); }

private:
    std::string Output;
    pid_t Id = 0;
};

class RealPort : public ::testing::Test
{
protected:
    /// The machine, and the device of the other end in Device.
    Process Machine(const std::string& options)
    {
        Process machine(CONTROL_SIM " " + options + " --timeout 20 -o " + Work / "taken", Work / "machine");
        while (machine.Text().find('\n') == std::string::npos) std::this_thread::sleep_for(2ms);
        Device = machine.Text().substr(0, machine.Text().find('\n'));
        return machine;
    }
    Process Cli(const std::string& words)
    {
        return {BRIXLEY_CLI " " + words + " --port " + Device, Work / "cli"};
    }
    Process Send(const std::string& line) { return Cli("send " + Work / "a.cnc" + " --line " + line); }
    double Figure(const Process& machine, const std::string& name)
    {
        const std::string text = machine.Text();
        return std::atof(text.c_str() + text.find("\n" + name + ": ") + name.size() + 3);
    }

    const std::string Taken =
        WithCrLf("%\n    N` G`   X `    Z `  F`  H \n    00M30                     \n   M\n");
    const Folder Work;
    const std::string File = Work.Put("a.cnc", "Note\r\n" + Taken);
    std::string Device;
};

TEST_F(RealPort, SendsAtThePaceOfTheLine)
{
    for (const char* line : {"300,N,8,1", "9600,N,8,1", "1200,E,7,2", "9600,O,8,2"}) {
        const Process machine = Machine("--line " + std::string(line));
        EXPECT_EQ(Send(line).Wait(), 0) << line;
        EXPECT_EQ(machine.Wait(), 0) << line << machine.Text();
        EXPECT_EQ(BytesOf(Work / "taken"), Taken) << line;
        EXPECT_NE(machine.Text().find("speed: as set"), std::string::npos) << line;
        const double least = static_cast<double>(Taken.size()) * ReadLineParameters(line)->CharacterTime();
        EXPECT_GE(Figure(machine, "seconds"), least - 0.0001) << line; // what it prints is rounded
        EXPECT_LE(Figure(machine, "seconds"), least * 1.01) << line << machine.Text();
    }
}

TEST_F(RealPort, StopsWithTheMarkAndNothingBehind)
{
    for (const auto delay : {250ms, 480ms, 730ms}) {
        const Process machine = Machine("--line 600,N,8,1");
        const Process cli = Send("600,N,8,1");
        std::this_thread::sleep_for(delay);
        cli.Interrupt();
        EXPECT_EQ(cli.Wait(), 2) << delay.count();
        EXPECT_EQ(machine.Wait(), 3) << delay.count() << machine.Text();
        EXPECT_TRUE(BytesOf(Work / "taken").ends_with("\r\nM\r\n")) << delay.count();
    }
}

TEST_F(RealPort, ReceivesEveryByte)
{
    std::string memory, rest;
    for (int i = 0; i < 200'000; ++i) memory += static_cast<char>(i * 7 + i / 251);
    for (const char c : memory) rest += c == '\0' ? "" : std::string(1, c);
    Work.Put("memory", memory);
    const Process machine = Machine("--fast --send --memory " + Work / "memory");
    EXPECT_EQ(Cli("receive --idle 0.3 -o " + Work / "got").Wait(), 0);
    EXPECT_EQ(machine.Wait(), 0);
    EXPECT_TRUE(BytesOf(Work / "got") == rest);
}

TEST_F(RealPort, TellsOnceWhatIsWrong)
{
    Work.Put("empty", "");
    const struct {
        std::string Machine, Cli, Why;
    } cases[] = {
        {"--line 9600,N,8,1 --hangup 20", "send " + File + " --line 9600,N,8,1", "is gone"},
        {"--fast --send --hangup 20 --memory " + File, "receive -o " + Work / "got", "what came is in"},
        {"--fast --send --hangup 0 --memory " + File, "receive -o " + Work / "none", "is gone"},
    };
    for (const auto& c : cases) {
        const Process machine = Machine(c.Machine);
        const Process cli = Cli(c.Cli);
        EXPECT_EQ(cli.Wait(), 2) << c.Cli;
        machine.Wait();
        const std::string said = cli.Text().substr(cli.Text().find("brixley-cli: "));
        EXPECT_NE(said.find(c.Why), std::string::npos) << c.Cli << cli.Text();
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << c.Cli;
    }
    EXPECT_EQ(BytesOf(Work / "got"), BytesOf(File).substr(0, 20));
    EXPECT_FALSE(std::filesystem::exists(Work / "none"));
}

TEST_F(RealPort, OneProgramHoldsIt)
{
    const Process machine = Machine("--timeout 3");
    const Process first = Cli("receive -o " + Work / "got");
    std::this_thread::sleep_for(300ms);
    const Process second(BRIXLEY_CLI " send " + Work / "a.cnc" + " --port " + Device, Work / "second");
    EXPECT_EQ(second.Wait(), 2);
    EXPECT_NE(second.Text().find("is used by another program"), std::string::npos) << second.Text();
    first.Interrupt();
    EXPECT_EQ(first.Wait(), 2);
    EXPECT_FALSE(std::filesystem::exists(Work / "got"));
    machine.Wait();
}

/// What is wrong on the line is seen at its other end: the simulator checks what it takes.
TEST_F(RealPort, TheMachineSeesALineAtFault)
{
    for (const char* fault : {"--drop 7", "--garble 7"}) {
        const Process machine = Machine("--line 9600,N,8,1 " + std::string(fault));
        EXPECT_EQ(Send("9600,N,8,1").Wait(), 0);
        EXPECT_EQ(machine.Wait(), 1) << fault;
        EXPECT_NE(machine.Text().find("fault: "), std::string::npos) << fault;
    }
    // One that stands still for a while loses nothing.
    const Process machine = Machine("--line 9600,N,8,1 --stall 10,0.5");
    EXPECT_EQ(Send("9600,N,8,1").Wait(), 0);
    EXPECT_EQ(machine.Wait(), 0) << machine.Text();
}

#endif

} // namespace
