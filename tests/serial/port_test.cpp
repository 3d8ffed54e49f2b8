// The line itself: what goes over it and at what pace. The real port is tested against control-sim, which
// plays the machine at the other end of a pair of pseudo terminals.

#include "core/code_page.h"
#include "core/text.h"
#include "files/writer.h"
#include "platform/port.h"
#include "serial/transmit.h"
#include "support/process.h"

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <sys/stat.h>
#include <vector>

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
    EXPECT_EQ(pace.LeadBytes(), 1U); // no more than a stop has to wait for
    pace.Add(30, pace.RoomAt());
    EXPECT_GE(pace.WhenEmpty() - start, 2s);
    EXPECT_LT(pace.WhenEmpty() - start, 2001ms);
    pace.Add(30, start + 5s);
    EXPECT_GE(pace.WhenEmpty() - start, 6s);
}

TEST(Line, NumbersPortsByTheirNumber)
{
    std::vector<std::string> devices = {"ttyS10", "ttyUSB10", "ttyS2", "ttyACM1", "ttyUSB9"};
    OrderPorts(devices);
    EXPECT_EQ(devices, (std::vector<std::string>{"ttyACM1", "ttyUSB9", "ttyUSB10", "ttyS2"}));
}

#ifdef CONTROL_SIM

/// brixley-cli at a port.
Process Cli(const std::string& words, const std::string& device, const std::string& output, uid_t user = 0)
{
    return {BRIXLEY_CLI " " + words + " --port " + device, output, user};
}

/// What it said in the end, behind the progress.
std::string LastWords(const Process& cli)
{
    const std::string text = cli.Text();
    const size_t at = text.rfind("brixley-cli: ");
    return at == std::string::npos ? "" : text.substr(at);
}

/// A program in the columns of a control, with codes and values that are drawn by lot. What sense it makes
/// is no matter: it is sent as it stands.
std::string RandomFile(const std::string& profile, unsigned seed)
{
    Start(profile);
    std::mt19937 lot(seed);
    const auto number = [&](int least, int most) {
        return std::to_string(std::uniform_int_distribution(least, most)(lot));
    };
    std::string lines;
    for (int i = 0; i < 104; ++i) {
        const char* const codes[] = {"G00", "G01", "G84", "G21"};
        lines += std::string(i == 0 ? "" : " / ") + codes[lot() % 4] + " X" + number(-5999, 5999) + " Z" +
                 number(-29999, 29999) + " F" + number(0, 499) + (lot() % 3 == 0 ? " ;umlaut \xC3\xA4" : "");
    }
    Enter(lines + (profile.starts_with("MK2") ? " / G22" : " / M30"));
    return ToCodePage(GenerateAll());
}

std::string OnTheWire(const std::string& file)
{
    std::string wire;
    for (const std::string& line : LinesToSend(file, true)) wire += line + "\r\n";
    return wire;
}

class RealPort : public ::testing::Test
{
protected:
    const std::string Short =
        WithCrLf("%\n    N` G`   X `    Z `  F`  H \n    00M30                     \n   M\n");
    const Folder Work;
    const std::string File = Work.Put("a.cnc", "Note\r\n" + Short);
};

/// One program on its way there and, from the memory of another machine, back.
struct RoundTrip {
    std::string Name, Line, Wire;
    std::unique_ptr<Machine> There, Back;
    std::unique_ptr<Process> Send, Receive;

    void Begin(const Folder& work, const std::string& file, const std::string& machine)
    {
        const std::string options = "--line " + Line + " --machine " + machine, at = work / Name;
        There = std::make_unique<Machine>(options);
        Back = std::make_unique<Machine>(options + " --send --memory " + work.Put(Name + ".wire", Wire));
        Send = std::make_unique<Process>(
            Cli("send " + file + " --line " + Line + " --machine " + machine, There->Device, at + ".sent"));
        Receive = std::make_unique<Process>(
            Cli("receive --idle 2 --line " + Line + " -o " + at + ".got", Back->Device, at + ".received"));
    }
    void End(const Folder& work) const
    {
        SCOPED_TRACE(Name + " " + Line);
        EXPECT_EQ(Send->Wait(), 0) << Send->Text();
        EXPECT_EQ(There->Wait(), 0) << There->Report();
        EXPECT_EQ(There->Taken(), Wire);
        EXPECT_NE(There->Report().find("speed: as set"), std::string::npos);
        EXPECT_GE(There->Figure("seconds"), There->Figure("line seconds") - 0.0001); // rounded
        EXPECT_EQ(Receive->Wait(), 0) << Receive->Text();
        EXPECT_EQ(BytesOf(work / Name + ".got"), Wire);
        Back->Wait();
    }
};

TEST_F(RealPort, TakesProgramsThereAndBack)
{
    // A pseudo terminal keeps the baud rate alone; its characters are as long as the parameters say.
    std::vector<std::string> lines;
    for (const char* baud : {"110", "300", "600", "1200", "2400", "4800", "9600"})
        lines.push_back(std::string(baud) + ",N,8,1");
    for (const char* frame : {",E,7,2", ",O,7,1", ",E,8,1", ",O,8,2", ",N,7,2"})
        lines.push_back("4800" + std::string(frame));
    // On a fast line a longer program goes out, so that a busy machine sees the line while it is open.
    const std::string longer = EXAMPLES_DIR "/mk4-first-turning.cnc", longerWire = OnTheWire(BytesOf(longer));
    std::vector<RoundTrip> trips;
    for (const std::string& line : lines) {
        const bool fast = ReadLineParameters(line)->Baud >= 2400;
        const std::string name = "trip" + std::to_string(trips.size());
        trips.push_back({name, line, fast ? longerWire : Short, {}, {}, {}, {}});
        trips.back().Begin(Work, fast ? longer : File, "MK4");
    }
    for (const RoundTrip& trip : trips) trip.End(Work);
}

TEST_F(RealPort, TakesEveryProgramByteByByte)
{
    std::vector<std::pair<std::string, std::string>> files; // machine, bytes
    for (const auto& entry : std::filesystem::directory_iterator(EXAMPLES_DIR)) {
        if (entry.path().extension() != ".cnc") continue;
        const std::string machine = UpperCase(FileNameOf(entry.path().string()).substr(0, 3));
        files.emplace_back(machine.starts_with("F1") ? "F1" : machine, BytesOf(entry.path().string()));
    }
    for (const unsigned seed : {1U, 2U}) {
        for (const char* profile : {"MK2 mm", "MK4 inch", "F1 mm", "F1 inch H"})
            files.emplace_back(std::string(profile, std::string(profile).find(' ')),
                               RandomFile(profile, seed));
    }
    std::vector<RoundTrip> trips;
    for (const auto& [machine, bytes] : files) {
        trips.push_back({std::to_string(trips.size()), "9600,N,8,1", OnTheWire(bytes), {}, {}, {}, {}});
        trips.back().Begin(Work, Work.Put(trips.back().Name + ".cnc", bytes), machine);
    }
    for (const RoundTrip& trip : trips) {
        trip.End(Work);
        // What came back is a program again: loaded and saved it goes out alike.
        const Process save(BRIXLEY_CLI " save " + Work / trip.Name + ".got -o " + Work / "again",
                           Work / "save");
        EXPECT_EQ(save.Wait(), 0) << save.Text();
        EXPECT_EQ(OnTheWire(BytesOf(Work / "again")), trip.Wire);
    }
}

TEST_F(RealPort, HandsLinesOverAtThePaceOfTheLine)
{
    // This machine takes what comes at once: the pace is the sender's.
    for (const char* line : {"300,N,8,1", "9600,E,8,2"}) {
        const Machine machine("--fast --line " + std::string(line));
        const Process cli = Cli("send " + File + " --line " + line, machine.Device, Work / "cli");
        EXPECT_EQ(cli.Wait(), 0) << cli.Text();
        machine.Wait();
        const double least = static_cast<double>(Short.size()) * ReadLineParameters(line)->CharacterTime();
        EXPECT_GE(machine.Figure("closed after"), least - 0.1) << line;
        // The last line begins when those before it have nearly left, and not earlier.
        const double lastLine = 6 * ReadLineParameters(line)->CharacterTime();
        EXPECT_GE(machine.Figure("seconds"), least - lastLine - 0.1) << line;
        EXPECT_LE(machine.Figure("closed after"), least * 1.1 + 0.2) << line;
    }
}

TEST_F(RealPort, StopsWithTheMarkAndNothingBehind)
{
    const std::string file = Work.Put("long.cnc", RandomFile("MK4 inch", 3)), wire = OnTheWire(BytesOf(file));
    const auto seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 lot(seed);
    struct Stopped {
        Machine Taker{"--line 2400,N,8,1"};
        std::unique_ptr<Process> Sender;
    };
    std::vector<std::unique_ptr<Stopped>> runs;
    for (int i = 0; i < 8; ++i) {
        runs.push_back(std::make_unique<Stopped>());
        runs.back()->Sender = std::make_unique<Process>(
            Cli("send " + file + " --line 2400,N,8,1", runs.back()->Taker.Device, Work / std::to_string(i)));
    }
    for (const auto& run : runs) {
        run->Sender->AwaitText("lines sent");
        std::this_thread::sleep_for(std::chrono::milliseconds(lot() % 300));
        run->Sender->Interrupt();
        EXPECT_EQ(run->Sender->Wait(), 2);
        EXPECT_EQ(run->Taker.Wait(), 3) << run->Taker.Report();
        EXPECT_EQ(run->Taker.Figure("behind"), 0);
        std::string taken = run->Taker.Taken();
        ASSERT_TRUE(taken.ends_with("\r\n\"\r\n")) << taken;
        taken.resize(taken.size() - 3);
        EXPECT_TRUE(wire.starts_with(taken)); // whole lines of the program, and no other
        EXPECT_NE(LastWords(*run->Sender).find("Only part of"), std::string::npos) << run->Sender->Text();
    }
}

TEST_F(RealPort, IsLeftWhileItStandsStill)
{
    const std::string file = Work.Put("long.cnc", RandomFile("MK4 mm", 4));
    for (const bool twice : {false, true}) {
        const Machine machine("--line 9600,N,8,1 --stall 100,2");
        const Process cli = Cli("send " + file + " --line 9600,N,8,1", machine.Device, Work / "cli");
        cli.AwaitText("4 of");
        std::this_thread::sleep_for(500ms);
        cli.Interrupt();
        const auto then = std::chrono::steady_clock::now();
        if (twice) {
            std::this_thread::sleep_for(100ms);
            cli.Interrupt();
        }
        // The stop mark waits for the port; a second interrupt waits for nothing.
        EXPECT_EQ(cli.Wait(), 2);
        const auto took = std::chrono::steady_clock::now() - then;
        EXPECT_LT(took, twice ? 1s : 10s);
        EXPECT_EQ(LastWords(cli).find("is gone"), std::string::npos) << LastWords(cli);
        const int status = machine.Wait();
        EXPECT_TRUE(twice || status == 3) << machine.Report();
    }
}

TEST_F(RealPort, LosesNoByteOfAStream)
{
    std::string garbage, rest;
    for (int i = 0; i < 200'000; ++i) garbage += static_cast<char>(i * 7 + i / 251);
    for (const char c : garbage) rest += c == '\0' ? "" : std::string(1, c);
    const std::string endless(1'000'000, 'x');
    const struct {
        std::string Options, Memory, Got;
    } cases[] = {
        {"--fast", garbage, rest},
        {"--fast", endless, endless},
        // At the speed of the line, with a stall that is shorter than the silence that ends it.
        {"--line 9600,N,8,1 --stall 300,0.4", garbage.substr(0, 600), std::string()},
    };
    for (const auto& c : cases) {
        const Machine machine(c.Options + " --send --memory " + Work.Put("memory", c.Memory));
        EXPECT_EQ(Cli("receive --idle 1 -o " + Work / "got", machine.Device, Work / "cli").Wait(), 0);
        EXPECT_EQ(machine.Wait(), 0);
        std::string expected = c.Got.empty() ? c.Memory : c.Got;
        std::erase(expected, '\0');
        EXPECT_TRUE(BytesOf(Work / "got") == expected) << c.Options;
    }
}

TEST_F(RealPort, TellsOnceWhatIsWrong)
{
    // Slow enough that a busy machine hangs up in the midst.
    const std::string send = "send " + File + " --line 600,N,8,1", receive = "receive -o ";
    const struct {
        std::string Machine, Cli, Why;
    } cases[] = {
        {"--line 600,N,8,1 --hangup 20", send, "is gone: check the cable"},
        {"--line 600,N,8,1 --hangup 1", send, "is gone: check the cable"},
        {"--fast --line 600,N,8,1 --hangup 20 --talk 10 --memory " + File, send, "is gone: check the cable"},
        {"--fast --send --hangup 20 --memory " + File, receive + Work / "got", "what came is in"},
        {"--fast --send --hangup 0 --memory " + File, receive + Work / "none", "is gone: check the cable"},
    };
    for (const auto& c : cases) {
        const Machine machine(c.Machine);
        const Process cli = Cli(c.Cli, machine.Device, Work / "cli");
        EXPECT_EQ(cli.Wait(), 2) << c.Cli;
        machine.Wait();
        const std::string said = LastWords(cli);
        EXPECT_NE(said.find(c.Why), std::string::npos) << c.Machine << cli.Text();
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << cli.Text();
        EXPECT_EQ(cli.Text().find("brixley-cli: "), cli.Text().rfind("brixley-cli: ")) << cli.Text();
        EXPECT_EQ(cli.Text().find("4 of 4"), std::string::npos) << cli.Text();
    }
    EXPECT_EQ(BytesOf(Work / "got"), BytesOf(File).substr(0, 20));
    EXPECT_FALSE(std::filesystem::exists(Work / "none"));
}

TEST_F(RealPort, SaysWhoMayUseIt)
{
    const Machine machine("--timeout 3");
    const Process first = Cli("receive -o " + Work / "got", machine.Device, Work / "first");
    std::this_thread::sleep_for(300ms);
    const Process second = Cli("send " + File, machine.Device, Work / "second");
    EXPECT_EQ(second.Wait(), 2);
    EXPECT_NE(second.Text().find("is used by another program"), std::string::npos) << second.Text();
    first.Interrupt();
    EXPECT_EQ(first.Wait(), 2);
    EXPECT_FALSE(std::filesystem::exists(Work / "got"));
    machine.Wait();

    const Process none = Cli("send " + File, "/dev/no-such-port", Work / "none");
    EXPECT_EQ(none.Wait(), 2);
    EXPECT_NE(none.Text().find("there is no such port"), std::string::npos) << none.Text();

    // Who may do everything needs no permission: another user tries then.
    constexpr uid_t Nobody = 65534;
    const uid_t user = ::geteuid() == 0 ? Nobody : 0;
    const Machine forbidden("--timeout 3");
    ::chmod(forbidden.Device.c_str(), 0);
    std::filesystem::permissions(std::filesystem::path(File).parent_path(), std::filesystem::perms::all);
    const Process third = Cli("send " + File, forbidden.Device, Work / "third", user);
    const int status = third.Wait();
    forbidden.Wait();
    if (status == 126 || status == 127) GTEST_SKIP() << "another user can't run the program here";
    EXPECT_EQ(status, 2);
    EXPECT_NE(third.Text().find("no permission: add yourself to the group"), std::string::npos)
        << third.Text();
}

/// What is wrong on the line is seen at its other end: the simulator checks what it takes.
TEST_F(RealPort, TheMachineSeesALineAtFault)
{
    const std::string send = "send " + File + " --line 9600,N,8,1";
    for (const char* fault : {"--drop 7", "--garble 7"}) {
        const Machine machine("--line 9600,N,8,1 " + std::string(fault));
        EXPECT_EQ(Cli(send, machine.Device, Work / "cli").Wait(), 0);
        EXPECT_EQ(machine.Wait(), 1) << fault;
        EXPECT_NE(machine.Report().find("fault: "), std::string::npos) << fault;
    }
    // One that stands still for a while, or sends in the midst of it, loses nothing.
    Work.Put("memory", std::string(3000, 'y'));
    for (const std::string& odd :
         {std::string("--stall 10,0.5"), "--fast --talk 30 --memory " + Work / "memory"}) {
        const Machine machine("--line 9600,N,8,1 " + odd);
        EXPECT_EQ(Cli(send, machine.Device, Work / "cli").Wait(), 0) << odd;
        EXPECT_EQ(machine.Wait(), 0) << machine.Report();
    }
}

#endif

} // namespace
