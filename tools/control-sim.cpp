// control-sim: plays the machine at the other end of a serial port.
//
// It takes a program as a control does that was set to receive (G66), checks its framing, and says how long
// the line was busy; or it sends its memory. It makes a pair of pseudo terminals and prints the name of the
// other end, or works on a real port. A pseudo terminal has no speed, so characters are taken and given at
// the pace of the line here. It knows nothing of the program that it talks to: what it checks is written down
// anew.

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <string>
#include <string_view>
#include <termios.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr const char* Usage = R"(Usage: control-sim [OPTION...]
Plays the machine at the other end of a serial line: it takes a program and prints what it saw, or sends
its memory. Without --port it makes a line and prints the name of the other end.

  --port DEVICE         use this serial port
  --line 300,N,8,1      baud rate, parity, data bits, stop bits
  --machine MK2|MK4|F1  the machine that it plays (MK4)
  --timeout SECONDS     give up so long after the start, also in the middle of a program (60)
  -o FILE               store the program that comes in
  --memory FILE         the program in its memory; a line G66 asks for it at any time
  --send                send the memory as soon as somebody listens
  --fast                don't keep to the speed of the line
Faults that it can have:
  --talk N              send the memory after N characters, in the middle of a program
  --stall N,SECONDS     stand still after N characters
  --drop N, --garble N  lose, or change, every Nth character
  --hangup N            go away after N characters

Exit status: 0 a whole program came (or the memory was sent), 3 a stop mark came, 2 wrong options or no
line, 1 anything else.
)";

struct Options {
    std::string Port, Machine = "MK4", Store, Memory;
    int Baud = 300, DataBits = 8, StopBits = 1;
    char Parity = 'N';
    double Timeout = 60, StallSeconds = 0;
    long StallAt = -1, TalkAt = -1, Drop = 0, Garble = 0, HangUpAt = -1;
    bool Send = false, Fast = false;

    double CharacterTime() const
    {
        if (Fast) return 0;
        return (1.0 + DataBits + (Parity == 'N' ? 0 : 1) + StopBits) / Baud;
    }
};

[[noreturn]] void Fail(const std::string& why)
{
    std::fprintf(stderr, "control-sim: %s\n", why.c_str());
    std::exit(2);
}

// The line

speed_t SpeedOf(int baud)
{
    switch (baud) {
    case 110: return B110;
    case 300: return B300;
    case 600: return B600;
    case 1200: return B1200;
    case 2400: return B2400;
    case 4800: return B4800;
    case 9600: return B9600;
    default: Fail("no such baud rate: " + std::to_string(baud));
    }
}

int OpenRealPort(const Options& options)
{
    const int line = ::open(options.Port.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (line < 0) Fail(options.Port + ": " + std::strerror(errno));
    termios set{};
    ::tcgetattr(line, &set);
    ::cfmakeraw(&set);
    set.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | PARODD | CSTOPB | CRTSCTS);
    set.c_cflag |= CLOCAL | CREAD | (options.DataBits == 7 ? CS7 : CS8);
    if (options.Parity != 'N') set.c_cflag |= PARENB | (options.Parity == 'O' ? PARODD : 0);
    if (options.StopBits == 2) set.c_cflag |= CSTOPB;
    ::cfsetspeed(&set, SpeedOf(options.Baud));
    if (::tcsetattr(line, TCSANOW, &set) != 0) Fail(options.Port + ": " + std::strerror(errno));
    return line;
}

int MakePair()
{
    const int line = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (line < 0 || ::grantpt(line) != 0 || ::unlockpt(line) != 0) Fail("no pseudo terminal can be made");
    // Only one that was open and closed counts as closed. It is no terminal for people: nothing is echoed.
    if (const int other = ::open(::ptsname(line), O_RDWR | O_NOCTTY); other >= 0) {
        termios set{};
        ::tcgetattr(other, &set);
        ::cfmakeraw(&set);
        ::tcsetattr(other, TCSANOW, &set);
        ::close(other);
    }
    std::printf("%s\n", ::ptsname(line));
    std::fflush(stdout);
    return line;
}

/// Whether the other end is open: on a real port nobody can tell.
bool IsOtherEndOpen(int line)
{
    pollfd look{line, 0, 0};
    return ::poll(&look, 1, 0) <= 0 || (look.revents & POLLHUP) == 0;
}

/// Whether characters wait; they also tell that the other end was open, when it is closed again already.
bool HasCharacters(int line)
{
    pollfd look{line, POLLIN, 0};
    return ::poll(&look, 1, 0) > 0 && (look.revents & POLLIN) != 0;
}

/// Waits until the other end is open, or was.
bool WaitForOtherEnd(int line, Clock::time_point giveUp)
{
    while (!IsOtherEndOpen(line) && !HasCharacters(line)) {
        if (Clock::now() > giveUp) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

void WaitUntil(Clock::time_point when)
{
    if (when > Clock::now()) std::this_thread::sleep_until(when);
}

Clock::duration Rounded(double seconds)
{
    return std::chrono::duration_cast<Clock::duration>(Seconds(seconds));
}

// What a control takes

/// The form of a program line by column: 'd' a digit or blank, 's' a sign or blank, 'w' a word's letter, sign
/// or blank, 'c' a code's letter or blank; all else stands for itself.
std::string_view FormOf(const std::string& machine)
{
    if (machine == "MK2") return "   Ndd Gdd Xwdddd Zwddddd Fddd";
    if (machine == "MK4") return "   dddcdd wdddd wdddddwddd ddd";
    return "   dddcddwdddddwddddwdddddwddd";
}

std::string_view HeaderOf(const std::string& machine)
{
    if (machine == "MK4") return "    N` G`   X `    Z `  F`  H ";
    if (machine == "F1") return "    N` G`  X  `  Y `   Z ` F  ";
    return "";
}

bool Fits(char form, char c)
{
    const bool blank = c == ' ';
    switch (form) {
    case 'd': return blank || std::isdigit(static_cast<unsigned char>(c)) != 0;
    case 'w': return blank || c == '-' || std::isupper(static_cast<unsigned char>(c)) != 0;
    case 'c': return blank || c == 'M';
    default: return c == form;
    }
}

enum class End { None, Trailer, StopMark };

/// Follows the lines of a program, as the control does.
class Framing
{
public:
    explicit Framing(const std::string& machine) : Machine(machine) {}

    std::vector<std::string> Faults;
    End Ended = End::None;
    int Lines = 0, Notes = 0;
    bool Begun = false;

    void Take(const std::string& line)
    {
        if (line == "M" || line == "\"") {
            Ended = End::StopMark;
        } else if (!Begun) {
            Begun = line == "%";
            if (!Begun) ++Notes;
        } else if (!HeaderOf(Machine).empty() && !HeaderSeen) {
            HeaderSeen = true;
            if (line.substr(0, Columns) != HeaderOf(Machine)) Faults.push_back("header: " + line);
        } else if (IsTrailer(line)) {
            Ended = End::Trailer;
        } else {
            TakeProgramLine(line);
        }
    }

private:
    static constexpr size_t Columns = 30;

    bool IsTrailer(std::string_view line) const
    {
        if (Machine != "F1") return line == "   M" || line == "   \"";
        return line == "   M-" || line == "   MI" || line == "   \"-" || line == "   \"I";
    }

    void TakeProgramLine(const std::string& line)
    {
        const std::string_view form = FormOf(Machine);
        const auto part = [&](size_t from, size_t count) {
            return line.size() < from ? std::string() : line.substr(from, count);
        };
        const bool wide = part(6, 4) == "M99R"; // the fields behind it stand one column further right
        bool fits = line.size() >= Columns || wide;
        for (size_t i = 0; fits && i < Columns && !(wide && i > 5); ++i) fits = Fits(form[i], line[i]);
        if (!fits) Faults.push_back("line: " + line);
        const std::string number = Machine == "MK2" ? part(4, 2) : part(3, 3);
        if (std::atoi(number.c_str()) != (Machine == "MK2" ? Lines % 100 : Lines))
            Faults.push_back("number: " + line);
        ++Lines;
    }

    const std::string Machine;
    bool HeaderSeen = false;
};

// The machine

class Control
{
public:
    Control(const Options& options, int line) : Given(options), Line(line), Lines(options.Machine)
    {
        if (options.Memory.empty()) return;
        std::ifstream file(options.Memory, std::ios::binary);
        if (!file) Fail(options.Memory + ": can't be read");
        Memory.assign(std::istreambuf_iterator<char>(file), {});
    }

    /// Takes what comes until the other end is closed or nothing happens any more. Returns the exit status.
    int Run()
    {
        GiveUp = Clock::now() + Rounded(Given.Timeout);
        if (!WaitForOtherEnd(Line, GiveUp)) return Report("nobody");
        if (Given.Send) {
            // The other end has opened the line, and sets it up.
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            return SendMemory() ? Report("sent") : Report("sending failed");
        }
        Free = Clock::now();
        for (;;) {
            char c;
            const ssize_t got = ::read(Line, &c, 1);
            if (got == 1) {
                if (!TakeCharacter(c)) return Report("hung up");
            } else if (got < 0 && errno == EAGAIN) {
                if (Clock::now() > GiveUp) return Report("timeout");
                RanEmpty = true;
                pollfd look{Line, POLLIN, 0};
                ::poll(&look, 1, 50);
            } else {
                if (Count > 0) Closed = Clock::now() - First;
                return Report("closed"); // the other end closed the line
            }
        }
    }

private:
    /// One character at the pace of the line; false when the machine goes away.
    bool TakeCharacter(char c)
    {
        // A character that lay ready follows the one before at once, however late this program wakes.
        const Clock::time_point now = Clock::now(), begins = RanEmpty ? std::max(now, Free) : Free;
        if (Count == 0) {
            First = begins;
            termios set{};
            if (::tcgetattr(Line, &set) == 0) Speed = ::cfgetospeed(&set);
        } else {
            Idle += begins - Free;
        }
        RanEmpty = false;
        Free = begins + Rounded(Given.CharacterTime());
        WaitUntil(Free);
        ++Count;
        if (Given.DataBits == 7) c = static_cast<char>(c & 0x7F);
        if (Count == Given.StallAt) {
            StandStill();
            Free = Clock::now();
        }
        if (Count == Given.TalkAt) SendMemory();
        if (Count == Given.HangUpAt) return false;
        if (Given.Drop > 0 && Count % Given.Drop == 0) return true;
        if (Given.Garble > 0 && Count % Given.Garble == 0) c = static_cast<char>(c ^ 0x15);
        Store(c);
        return true;
    }

    /// Takes nothing for a while. A pair would go on to keep what comes, so its other end is held too.
    void StandStill() const
    {
        const int other = Given.Port.empty() ? ::open(::ptsname(Line), O_RDWR | O_NOCTTY) : -1;
        if (other >= 0) ::tcflow(other, TCOOFF);
        std::this_thread::sleep_for(Seconds(Given.StallSeconds));
        if (other < 0) return;
        ::tcflow(other, TCOON);
        ::close(other);
    }

    void Store(char c)
    {
        if (Lines.Ended != End::None) ++Behind;
        Stored += c;
        if (c == '\n') {
            if (!Text.empty() && Text.back() == '\r')
                Text.pop_back();
            else
                Lines.Faults.push_back("line end: LF without CR");
            if (Text == "G66")
                SendMemory();
            else if (Lines.Ended == End::None)
                Lines.Take(Text);
            Text.clear();
        } else {
            Text += c;
        }
    }

    bool SendMemory()
    {
        Clock::time_point next = Clock::now();
        long sent = 0;
        while (sent < static_cast<long>(Memory.size())) {
            if (Given.Send && sent == Given.HangUpAt) {
                // The system drops what the other end has not taken when this one closes.
                std::this_thread::sleep_for(std::chrono::milliseconds(100));
                return true;
            }
            if (sent == Given.StallAt) {
                std::this_thread::sleep_for(Seconds(Given.StallSeconds));
                next = Clock::now();
            }
            const long left = static_cast<long>(Memory.size()) - sent;
            long chunk = Given.Fast ? std::min(4096L, left) : 1;
            for (const long at : {Given.HangUpAt, Given.StallAt}) {
                if (at > sent) chunk = std::min(chunk, at - sent);
            }
            const ssize_t put = ::write(Line, Memory.data() + sent, static_cast<size_t>(chunk));
            if (put > 0) {
                sent += put;
                next += Rounded(Given.CharacterTime());
                WaitUntil(next);
            } else if (errno == EAGAIN && Clock::now() < GiveUp) {
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            } else {
                return false;
            }
        }
        // A line that is closed drops what the other end has not read yet.
        while (Given.Send && IsOtherEndOpen(Line) && Clock::now() < GiveUp)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        return true;
    }

    int Report(const std::string& how)
    {
        const char* const ends[] = {"none", "trailer", "stop mark"};
        const Seconds busy = Count > 0 ? Free - First : Clock::duration{};
        std::printf("over: %s\n", how.c_str());
        std::printf("characters: %ld\n", Count);
        std::printf("seconds: %.4f\n", busy.count());
        std::printf("line seconds: %.4f\n", static_cast<double>(Count) * Given.CharacterTime());
        std::printf("closed after: %.4f\n", Seconds(Closed).count());
        std::printf("idle: %.4f\n", Seconds(Idle).count());
        std::printf("speed: %s\n", Speed == SpeedOf(Given.Baud) ? "as set" : "another");
        std::printf("notes: %d\nlines: %d\n", Lines.Notes, Lines.Lines);
        std::printf("end: %s\nbehind: %ld\n", ends[static_cast<size_t>(Lines.Ended)], Behind);
        if (!Text.empty()) Lines.Faults.push_back("unfinished: " + Text);
        for (const std::string& fault : Lines.Faults) std::printf("fault: %s\n", fault.c_str());
        if (!Given.Store.empty()) std::ofstream(Given.Store, std::ios::binary) << Stored;
        if (Given.Send) return how == "sent" ? 0 : 1;
        if (!Lines.Faults.empty() || Behind > 0) return 1;
        return Lines.Ended == End::Trailer ? 0 : Lines.Ended == End::StopMark ? 3 : 1;
    }

    const Options& Given;
    const int Line;
    Framing Lines;
    std::string Memory, Stored, Text;
    Clock::time_point GiveUp, First, Free;
    Clock::duration Idle{}, Closed{};
    /// Nothing lay ready when the line was looked at last.
    bool RanEmpty = true;
    long Count = 0, Behind = 0;
    speed_t Speed = 0;
};

// The command line

template <class Value> struct Option {
    std::string_view Name;
    Value Options::*Sets;
};
constexpr Option<bool> Flags[] = {{"--send", &Options::Send}, {"--fast", &Options::Fast}};
constexpr Option<std::string> Texts[] = {{"--port", &Options::Port},
                                         {"--machine", &Options::Machine},
                                         {"-o", &Options::Store},
                                         {"--memory", &Options::Memory}};
constexpr Option<long> Counts[] = {{"--drop", &Options::Drop},
                                   {"--garble", &Options::Garble},
                                   {"--talk", &Options::TalkAt},
                                   {"--hangup", &Options::HangUpAt}};

/// The member that a word names, null when it isn't in the table.
template <class Value, size_t count>
Value* Find(const Option<Value> (&table)[count], std::string_view word, Options& options)
{
    for (const Option<Value>& option : table) {
        if (option.Name == word) return &(options.*option.Sets);
    }
    return nullptr;
}

/// Whether the value of an option is one; false also for an unknown option.
bool SetOption(Options& options, const std::string& word, const std::string& value)
{
    if (std::string* const text = Find(Texts, word, options)) {
        *text = value;
    } else if (long* const number = Find(Counts, word, options)) {
        *number = std::atol(value.c_str());
    } else if (word == "--timeout") {
        options.Timeout = std::atof(value.c_str());
    } else if (word == "--stall") {
        return std::sscanf(value.c_str(), "%ld,%lf", &options.StallAt, &options.StallSeconds) == 2;
    } else if (word == "--line") {
        return std::sscanf(value.c_str(), "%d,%c,%d,%d", &options.Baud, &options.Parity, &options.DataBits,
                           &options.StopBits) == 4;
    } else {
        return false;
    }
    return true;
}

Options ReadOptions(const std::vector<std::string>& words)
{
    Options options;
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word == "--help") {
            std::fputs(Usage, stdout);
            std::exit(0);
        }
        if (bool* const flag = Find(Flags, word, options)) {
            *flag = true;
            continue;
        }
        if (i + 1 == words.size()) Fail("a value is missing, or there is no such option: " + word);
        const std::string& value = words[++i];
        if (!SetOption(options, word, value))
            Fail("no such option, or not a value for it: " + word + " " + value);
    }
    if (options.Machine != "MK2" && options.Machine != "MK4" && options.Machine != "F1")
        Fail("there is no machine " + options.Machine);
    return options;
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = ReadOptions({argv + 1, argv + argc});
    const int line = options.Port.empty() ? MakePair() : OpenRealPort(options);
    return Control(options, line).Run();
}
