// files.cpp: reading, saving, logging and removing, over one table of system calls.
//
// Each routine is a list of steps; the first that fails names the failure, and what it leaves behind
// is cleared away by destructors, whose own failures are not worth a word over the first one. Saving
// stands at the end, after the pieces that it is made of.

#include "platform/files.h"

#include "platform/failure_numbers.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <new>
#include <unistd.h>
#include <utility>

SystemCalls Calls = {
    .Open = [](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); },
    .Close = ::close,
    .ReadAt = ::pread,
    .Write = ::write,
    .Sync = ::fsync,
    .DropCache = [](int file) { return ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED); },
    .Stat = ::stat,
    .FileStat = ::fstat,
    .ChangeMode = ::fchmod,
    .ChangeOwner = ::fchown,
    .Access = [](const char* path, int wanted) { return ::faccessat(AT_FDCWD, path, wanted, AT_EACCESS); },
    .ReadLink = ::readlink,
    .Rename = ::rename,
    .Unlink = ::unlink,
    .MakeFolder = ::mkdir,
};

namespace {

// ---- What a failure is called ----

enum class Doing { Reading, Writing };

constexpr int NotFound = Failures::FileNotFound;
constexpr int DiskFull = Failures::DiskFull;
constexpr int Denied = Failures::PermissionDenied;
constexpr int NoAccess = Failures::PathAccess;

// Causes that no errno names. Below 0, where errno never is.
constexpr int NotRegular = -1;
constexpr int BadName = -2;
constexpr int Damaged = -3;
constexpr int AnyOther = -4;

struct Named {
    int Number;
    const char* Reason;
};

struct Cause {
    int Error;
    Named Reading, Writing;
};

// One cause can mean two things: a name that isn't there is the file when reading, but its folder when
// writing, since a missing file is made. The last row is for everything that no row names.
constexpr Cause Causes[] = {
    {ENOENT, {NotFound, "the file does not exist"}, {NoAccess, "the folder does not exist"}},
    {ENOTDIR, {NotFound, "the file does not exist"}, {NoAccess, "the folder does not exist"}},
    {ENOSPC, {DiskFull, "the disk is full"}, {DiskFull, "the disk is full"}},
    {EDQUOT,
     {DiskFull, "your share of the disk is used up"},
     {DiskFull, "your share of the disk is used up"}},
    {EFBIG, {NoAccess, "the file is too large"}, {DiskFull, "the file is too large for the disk"}},
    {EACCES, {Denied, "no permission to read it"}, {Denied, "no permission to write there"}},
    {EPERM, {Denied, "no permission to read it"}, {Denied, "no permission to write there"}},
    {EROFS, {Denied, "the disk is write-protected"}, {Denied, "the disk is write-protected"}},
    {EISDIR, {NoAccess, "it is a folder"}, {NoAccess, "the target is a folder"}},
    {NotRegular, {NoAccess, "it is not an ordinary file"}, {NoAccess, "the target is not an ordinary file"}},
    {BadName, {NoAccess, "the name cannot be used"}, {NoAccess, "the name cannot be used"}},
    {EINVAL, {NoAccess, "the disk does not allow it"}, {NoAccess, "the disk does not allow the name"}},
    {ENAMETOOLONG, {NoAccess, "the name is too long"}, {NoAccess, "the name is too long"}},
    {ELOOP, {NoAccess, "its links run in a circle"}, {NoAccess, "its links run in a circle"}},
    {EEXIST,
     {NoAccess, "the name is already taken"},
     {NoAccess, "something else with that name is in the way"}},
    {EIO, {NoAccess, "the disk reports an error"}, {NoAccess, "the disk reports an error"}},
    {ENODEV, {NoAccess, "the disk is no longer there"}, {NoAccess, "the disk is no longer there"}},
    {ESTALE, {NoAccess, "the disk is no longer there"}, {NoAccess, "the disk is no longer there"}},
    {EAGAIN, {NoAccess, "another program is using it"}, {NoAccess, "another program is using it"}},
    {EBUSY, {NoAccess, "another program is using it"}, {NoAccess, "another program is using it"}},
    {ETXTBSY, {NoAccess, "another program is using it"}, {NoAccess, "another program is using it"}},
    {EMFILE, {NoAccess, "too many files are open"}, {NoAccess, "too many files are open"}},
    {ENFILE, {NoAccess, "too many files are open"}, {NoAccess, "too many files are open"}},
    {ENOMEM, {NoAccess, "there is not enough memory"}, {NoAccess, "there is not enough memory"}},
    {Damaged, {NoAccess, "the file is damaged"}, {NoAccess, "the file was not written correctly"}},
    {AnyOther, {NoAccess, "the file cannot be read"}, {NoAccess, "the file cannot be written"}},
};

FileFailure Failure(int error, Doing doing)
{
    const Cause* cause = std::find_if(std::begin(Causes), std::prev(std::end(Causes)),
                                      [&](const Cause& row) { return row.Error == error; });
    const Named& named = doing == Doing::Reading ? cause->Reading : cause->Writing;
    return {named.Number, named.Reason};
}

// What a filesystem answers that doesn't offer a thing, as opposed to one that fails at it.
bool NotOffered(int error)
{
    return error == EINVAL || error == ENOTSUP || error == ENOSYS;
}

// ---- Pieces ----

// Makes a call until no signal interrupts it. Not for Close: Linux has closed the file by then, and
// its number may be another's already.
template <typename Result, typename... Parameters, typename... Arguments>
Result Retried(Result (*call)(Parameters...), Arguments... arguments)
{
    Result result = call(arguments...);
    while (result == -1 && errno == EINTR) result = call(arguments...);
    return result;
}

// An open file, or none. Closed with its scope at the latest.
struct Handle {
    int File = -1;

    Handle() = default;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle()
    {
        if (File >= 0) Calls.Close(File);
    }
};

// A server reports only here that it had no room for what it took before.
std::optional<FileFailure> CloseChecked(Handle& handle)
{
    const int file = handle.File;
    handle.File = -1;
    if (Calls.Close(file) != 0 && errno != EINTR) return Failure(errno, Doing::Writing);
    return std::nullopt;
}

// A zero byte would cut the path short for the system, and another file would be meant.
bool Usable(const std::string& path)
{
    return !path.empty() && path.find('\0') == std::string::npos;
}

std::optional<FileFailure> RefusedKind(const struct stat& info, Doing doing)
{
    if (S_ISDIR(info.st_mode)) return Failure(EISDIR, doing);
    if (!S_ISREG(info.st_mode)) return Failure(NotRegular, doing);
    return std::nullopt;
}

// Opens a regular file, and nothing else: looks before it opens, and again at what it got, in case
// the name was given to something else in between. Non-blocking for the same case.
std::optional<FileFailure> OpenRegular(const std::string& path, int flags, Doing doing, Handle& handle,
                                       struct stat& info)
{
    if (!Usable(path)) return Failure(BadName, doing);
    if (Retried(Calls.Stat, path.c_str(), &info) == 0) {
        if (auto refused = RefusedKind(info, doing)) return refused;
    } else if (errno != ENOENT || (flags & O_CREAT) == 0) {
        return Failure(errno, doing);
    }
    handle.File = Retried(Calls.Open, path.c_str(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, mode_t{0666});
    if (handle.File < 0) return Failure(errno, doing);
    if (Retried(Calls.FileStat, handle.File, &info) != 0) return Failure(errno, doing);
    return RefusedKind(info, doing);
}

// Bytes read at a time.
constexpr size_t ChunkSize = 65536;

// Read to the end, not to the size: a file may grow meanwhile, and those of /proc say 0. The one place
// where a file decides how much memory is asked for.
std::optional<FileFailure> ReadToEnd(int file, std::string& bytes)
{
    try {
        char chunk[ChunkSize];
        for (;;) {
            const auto at = static_cast<off_t>(bytes.size());
            const ssize_t count = Retried(Calls.ReadAt, file, static_cast<void*>(chunk), ChunkSize, at);
            if (count < 0) return Failure(errno, Doing::Reading);
            if (count == 0) return std::nullopt;
            bytes.append(chunk, static_cast<size_t>(count));
            if (bytes.size() > LargestFile) return Failure(EFBIG, Doing::Reading);
        }
    } catch (const std::bad_alloc&) {
        return Failure(ENOMEM, Doing::Reading);
    }
}

std::optional<FileFailure> WriteAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count =
            Retried(Calls.Write, file, static_cast<const void*>(bytes.data()), bytes.size());
        if (count < 0) return Failure(errno, Doing::Writing);
        // Nothing taken and nothing wrong: older systems say so that a disk is full.
        if (count == 0) return Failure(ENOSPC, Doing::Writing);
        bytes.remove_prefix(static_cast<size_t>(count));
    }
    return std::nullopt;
}

// ---- Pieces of saving ----

// The most links one after another, as the kernel has it.
constexpr int MostLinks = 40;

std::string FolderOf(const std::string& path)
{
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return path.substr(0, std::max<size_t>(slash, 1));
}

// Replaces `path` by what it links to in the end, which needn't exist. Only the last part of the path is
// looked at: links among its folders are followed by every call by itself.
std::optional<FileFailure> FollowLinks(std::string& path)
{
    for (int i = 0; i < MostLinks; ++i) {
        char text[PATH_MAX];
        const ssize_t length = Retried(Calls.ReadLink, path.c_str(), text, sizeof text);
        if (length < 0 && (errno == EINVAL || errno == ENOENT)) return std::nullopt; // no link, or nothing
        if (length < 0) return Failure(errno, Doing::Writing);
        if (static_cast<size_t>(length) == sizeof text) return Failure(ENAMETOOLONG, Doing::Writing);
        const std::string link(text, static_cast<size_t>(length));
        path = link.starts_with('/') ? link : FolderOf(path) + "/" + link;
    }
    return Failure(ELOOP, Doing::Writing);
}

// Looks at what is to be replaced; `old` stays empty when there is nothing yet. Replacing takes only the
// right to write the folder, so the right to write the file has to be asked for.
std::optional<FileFailure> LookAtOld(const std::string& target, std::optional<struct stat>& old)
{
    struct stat info = {};
    if (Retried(Calls.Stat, target.c_str(), &info) != 0) {
        if (errno == ENOENT) return std::nullopt;
        return Failure(errno, Doing::Writing);
    }
    if (auto refused = RefusedKind(info, Doing::Writing)) return refused;
    if (Retried(Calls.Access, target.c_str(), W_OK) != 0) return Failure(errno, Doing::Writing);
    old = info;
    return std::nullopt;
}

// Opens the folder of the target, for the sync at the end, but before anything is written: here a missing
// folder shows. One that may not be read can't be opened, yet files can be made in it: left closed.
std::optional<FileFailure> OpenFolder(const std::string& path, Handle& folder)
{
    folder.File = Retried(Calls.Open, path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, mode_t{0});
    if (folder.File < 0 && errno != EACCES) return Failure(errno, Doing::Writing);
    return std::nullopt;
}

// The new file while it isn't in place yet. Whatever ends its scope, it is gone, or renamed.
struct Temporary {
    std::string Path; ///< empty when there is none
    Handle Open;

    ~Temporary()
    {
        if (!Path.empty()) Retried(Calls.Unlink, Path.c_str());
    }
};

// Makes the file, in the folder of the target so that it can be renamed. Its name is not made from the
// target's, which may be as long as names can be. Until it has the rights of the old file it has none for
// anybody else; a new file gets from the system what any new file gets there.
std::optional<FileFailure> MakeTemporary(const std::string& folder, bool isNew, Temporary& temporary)
{
    // A name can be taken by what a crash left, or by another machine on the same server.
    constexpr int tries = 100;
    static unsigned counter = 0;
    for (int i = 0; i < tries; ++i) {
        char name[64];
        std::snprintf(name, sizeof name, "/.brixley-%ld-%u.tmp", static_cast<long>(::getpid()), counter++);
        const std::string path = folder + name;
        const mode_t mode = isNew ? 0666 : 0600;
        temporary.Open.File = Retried(Calls.Open, path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (temporary.Open.File >= 0) {
            temporary.Path = path;
            return std::nullopt;
        }
        if (errno != EEXIST) break;
    }
    return Failure(errno, Doing::Writing);
}

// Gives the new file the owner, group and rights of the old one. First the owner: the rights of the old
// group are nothing for another one. Where the group stays foreign, it gets what all others have at most.
std::optional<FileFailure> KeepOwnerAndMode(int file, const struct stat& old)
{
    struct stat fresh = {};
    if (Retried(Calls.FileStat, file, &fresh) != 0) return Failure(errno, Doing::Writing);
    mode_t mode = old.st_mode & 0777;
    if (fresh.st_uid != old.st_uid || fresh.st_gid != old.st_gid) {
        constexpr auto sameOwner = static_cast<uid_t>(-1);
        const bool groupKept = Retried(Calls.ChangeOwner, file, old.st_uid, old.st_gid) == 0 ||
                               Retried(Calls.ChangeOwner, file, sameOwner, old.st_gid) == 0;
        if (!groupKept) mode &= static_cast<mode_t>(0707 | (mode & 07) << 3);
    }
    // FAT answers EPERM to rights that it can't hold: no reason to refuse a save to a USB stick.
    if ((fresh.st_mode & 0777) == mode || Retried(Calls.ChangeMode, file, mode) == 0) return std::nullopt;
    if (errno == EPERM || NotOffered(errno)) return std::nullopt;
    return Failure(errno, Doing::Writing);
}

// A failed sync is final, not tried again: the system then takes the lost pages for written.
bool Synced(int file)
{
    return Retried(Calls.Sync, file) == 0 || NotOffered(errno);
}

// Reads the file back, from the disk itself where the system lets go of its copy: there are USB sticks
// that take everything and keep a part.
std::optional<FileFailure> CompareBack(int file, std::string_view bytes)
{
    Calls.DropCache(file);
    char chunk[ChunkSize];
    size_t at = 0;
    for (;;) {
        const ssize_t result =
            Retried(Calls.ReadAt, file, static_cast<void*>(chunk), ChunkSize, static_cast<off_t>(at));
        if (result < 0) return Failure(errno, Doing::Writing);
        if (result == 0) break;
        const auto count = static_cast<size_t>(result);
        if (bytes.substr(at, count) != std::string_view(chunk, count))
            return Failure(Damaged, Doing::Writing);
        at += count;
    }
    if (at != bytes.size()) return Failure(Damaged, Doing::Writing);
    return std::nullopt;
}

// Fills the temporary file and proves that it is whole on the disk, with nothing left open.
std::optional<FileFailure> FinishTemporary(Temporary& temporary, std::string_view bytes,
                                           const std::optional<struct stat>& old)
{
    const int file = temporary.Open.File;
    if (auto failure = WriteAll(file, bytes)) return failure;
    if (old) {
        if (auto failure = KeepOwnerAndMode(file, *old)) return failure;
    }
    if (!Synced(file)) return Failure(errno, Doing::Writing);
    if (auto failure = CompareBack(file, bytes)) return failure;
    return CloseChecked(temporary.Open);
}

bool IsFolder(const std::string& path)
{
    struct stat info = {};
    return Retried(Calls.Stat, path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

} // namespace

std::optional<FileFailure> ReadWholeFile(const std::string& path, std::string& bytes)
{
    Handle file;
    struct stat info = {};
    if (auto failure = OpenRegular(path, O_RDONLY, Doing::Reading, file, info)) return failure;
    if (info.st_size > static_cast<off_t>(LargestFile)) return Failure(EFBIG, Doing::Reading);
    std::string read;
    if (auto failure = ReadToEnd(file.File, read)) return failure;
    bytes = std::move(read);
    return std::nullopt;
}

std::optional<FileFailure> ReplaceFile(const std::string& path, std::string_view bytes)
{
    if (!Usable(path)) return Failure(BadName, Doing::Writing);

    // Find the file that is meant. Nothing is changed in these steps.
    std::string target = path;
    if (auto failure = FollowLinks(target)) return failure;
    std::optional<struct stat> old;
    if (auto failure = LookAtOld(target, old)) return failure;
    Handle folder;
    if (auto failure = OpenFolder(FolderOf(target), folder)) return failure;

    // Finish the new file beside it. The old one is untouched up to the renaming.
    Temporary temporary;
    if (auto failure = MakeTemporary(FolderOf(target), !old, temporary)) return failure;
    if (auto failure = FinishTemporary(temporary, bytes, old)) return failure;
    if (Retried(Calls.Rename, temporary.Path.c_str(), target.c_str()) != 0)
        return Failure(errno, Doing::Writing);
    temporary.Path.clear();

    // The new file is in place. All that can be missing is that the disk knows its name.
    if (folder.File >= 0 && !Synced(folder.File))
        return FileFailure{Failure(errno, Doing::Writing).Number,
                           "the new file is in place, but the disk did not confirm it"};
    return std::nullopt;
}

std::optional<FileFailure> AppendToFile(const std::string& path, std::string_view text)
{
    Handle file;
    struct stat info = {};
    constexpr int flags = O_WRONLY | O_APPEND | O_CREAT;
    if (auto failure = OpenRegular(path, flags, Doing::Writing, file, info)) return failure;
    if (auto failure = WriteAll(file.File, text)) return failure;
    return CloseChecked(file);
}

std::optional<FileFailure> MakeFolders(const std::string& path)
{
    if (!Usable(path)) return Failure(BadName, Doing::Writing);
    // From the top down, each part that isn't there yet. Asked again after a failure: another program may
    // have made it in between.
    for (size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
        const std::string part = path.substr(0, end);
        if (!IsFolder(part) && Retried(Calls.MakeFolder, part.c_str(), mode_t{0777}) != 0) {
            const int error = errno;
            if (!IsFolder(part)) return Failure(error, Doing::Writing);
        }
        if (end == std::string::npos) return std::nullopt;
    }
}

bool FileExists(const std::string& path)
{
    struct stat info = {};
    return Usable(path) && Retried(Calls.Stat, path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

bool PathExists(const std::string& path)
{
    struct stat info = {};
    return Usable(path) && Retried(Calls.Stat, path.c_str(), &info) == 0;
}

bool IsSameFile(const std::string& one, const std::string& other)
{
    struct stat a = {}, b = {};
    return one == other ||
           (Usable(one) && Usable(other) && Retried(Calls.Stat, one.c_str(), &a) == 0 &&
            Retried(Calls.Stat, other.c_str(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino);
}

std::vector<std::string> FilesIn(const std::string& folder, const std::string& ending)
{
    std::vector<std::string> files;
    std::error_code failed; // a loop over the range would throw where the disk fails on the way
    for (std::filesystem::directory_iterator at(folder, failed), end; at != end; at.increment(failed)) {
        const std::string name = at->path().filename().string();
        if (name.ends_with(ending) && FileExists(at->path().string())) files.push_back(name);
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string FindFile(const std::string& folder, const std::string& name)
{
    const std::string path = folder + "/" + name;
    if (FileExists(path)) return path;
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? c | 0x20 : c; };
    const auto sameLetter = [&](char a, char b) { return lower(a) == lower(b); };
    for (const std::string& found : FilesIn(folder, "")) {
        if (std::equal(found.begin(), found.end(), name.begin(), name.end(), sameLetter))
            return folder + "/" + found;
    }
    return path;
}

bool RemoveFile(const std::string& path)
{
    return Usable(path) && Retried(Calls.Unlink, path.c_str()) == 0;
}
