#include "platform/failing_disk.h"

#include <cerrno>
#include <initializer_list>
#include <string_view>

DiskRecord FailingDisk;

namespace {

SystemCalls Beneath;

bool Fails(const char* name)
{
    const DiskFault& fault = FailingDisk.Fault;
    ++FailingDisk.Made;
    const bool fails =
        fault.At != 0 && (fault.FromThereOn ? FailingDisk.Made >= fault.At : FailingDisk.Made == fault.At);
    FailingDisk.LastFailed = fails;
    (fails ? FailingDisk.Refused : FailingDisk.Done).push_back(name);
    return fails;
}

template <auto Member, typename Type = decltype(Member)> struct Faulty;

/// One call of the table: the real one, unless it is its turn to fail.
template <auto Member, typename Result, typename... Parameters>
struct Faulty<Member, Result (*SystemCalls::*)(Parameters...)> {
    static inline const char* Name = "";
    static Result Call(Parameters... parameters)
    {
        // A failing close has closed the file all the same.
        const bool closes = std::string_view(Name) == "Close";
        const bool fails = Fails(Name);
        const Result result = fails && !closes ? -1 : (Beneath.*Member)(parameters...);
        if (fails) errno = FailingDisk.Fault.Error;
        return fails ? -1 : result;
    }
};

template <auto... Members> void Install(std::initializer_list<const char*> names)
{
    static_assert(sizeof...(Members) * sizeof(void (*)()) == sizeof(SystemCalls), "a call is left out");
    auto name = names.begin();
    ((Faulty<Members>::Name = *name++, Calls.*Members = &Faulty<Members>::Call), ...);
}

} // namespace

void FailDisk(const DiskFault& fault, const SystemCalls& real)
{
    using S = SystemCalls;
    Beneath = real;
    FailingDisk = {.Fault = fault, .Done = {}, .Refused = {}};
    Install<&S::Open, &S::Close, &S::ReadAt, &S::Write, &S::Sync, &S::DropCache, &S::Stat, &S::FileStat,
            &S::ChangeMode, &S::ChangeOwner, &S::Access, &S::ReadLink, &S::Rename, &S::Unlink,
            &S::MakeFolder>({"Open", "Close", "ReadAt", "Write", "Sync", "DropCache", "Stat", "FileStat",
                             "ChangeMode", "ChangeOwner", "Access", "ReadLink", "Rename", "Unlink",
                             "MakeFolder"});
}

void FillDisk(bool full)
{
    static const auto write = Calls.Write;
    const auto refuse = [](int, const void*, size_t) -> ssize_t {
        errno = ENOSPC;
        return -1;
    };
    Calls.Write = full ? +refuse : write;
}
