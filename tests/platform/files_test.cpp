// files_test.cpp: the disk fails, and the user's program survives.
//
// Every system call is let fail in turn, once and from there on, until a run gets through without
// reaching the fault. What is on the disk is judged with the C++ library, not with the routines under
// test. Some cases are about rights, which root doesn't feel: those run as "nobody" when root starts them.

#include "platform/failing_disk.h"
#include "platform/files.h"
#include "support/program.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <new>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

using Failed = std::optional<FileFailure>;

const SystemCalls Real = Calls;

// A slow disk, which takes and gives a part of what it is asked for. Faults strike between the parts.
const SystemCalls Slow = [] {
    SystemCalls calls = Real;
    calls.Write = [](int file, const void* from, size_t n) {
        return Real.Write(file, from, std::min<size_t>(n, 1999));
    };
    calls.ReadAt = [](int file, void* to, size_t n, off_t at) {
        return Real.ReadAt(file, to, std::min<size_t>(n, 1777), at);
    };
    return calls;
}();

// ---- The world around ----

void Put(const fs::path& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

struct stat InfoOf(const fs::path& path)
{
    struct stat info = {};
    ::stat(path.c_str(), &info);
    return info;
}

mode_t ModeOf(const fs::path& path)
{
    return InfoOf(path).st_mode & 07777;
}

auto OpenFiles()
{
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

constexpr uid_t Nobody = 65534;

struct AsNobody {
    AsNobody() { EXPECT_TRUE(::getuid() != 0 || ::seteuid(Nobody) == 0); }
    ~AsNobody() { EXPECT_TRUE(::getuid() != 0 || ::seteuid(0) == 0); }
};

// An old and a new program of different length. The disk takes the new one in three parts.
const std::string Old(3000, 'o');
const std::string New = [] {
    std::string text;
    for (int i = 0; i < 5000; ++i) text += static_cast<char>(i * 7);
    return text;
}();

struct FilesTest : testing::Test {
    fs::path In;    ///< a fresh folder that anybody may write
    fs::path Saved; ///< in it, the file of most cases

    void SetUp() override
    {
        std::string name = testing::TempDir() + "brixley-files-XXXXXX";
        ASSERT_NE(::mkdtemp(name.data()), nullptr);
        In = name;
        Saved = In / "part.nc";
        ASSERT_EQ(::chmod(In.c_str(), 0777), 0);
    }
    void TearDown() override
    {
        Calls = Real;
        fs::remove_all(In);
    }

    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(In)) names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

    // A program whose owner and group are not the saver's, where the user may arrange that.
    void PutOld()
    {
        Put(Saved, Old);
        ASSERT_TRUE(::getuid() != 0 || ::chown(Saved.c_str(), Nobody, Nobody) == 0);
        ASSERT_EQ(::chmod(Saved.c_str(), 0664), 0);
    }

    // Failed calls that a save survives: a folder that may not be read, an owner that can't be kept, a hint
    // to the cache, closing the folder at the very end.
    static bool Harmless()
    {
        if (FailingDisk.Refused.empty() || FailingDisk.Fault.Error == EINTR) return true;
        const std::string& call = FailingDisk.Refused[0];
        return (call == "Open" && FailingDisk.Fault.Error == EACCES) || call == "ChangeOwner" ||
               call == "DropCache" || (call == "Close" && FailingDisk.LastFailed);
    }

    // Saves under one fault and judges what is there afterwards.
    void SaveUnder(const DiskFault& fault, const fs::path& path, bool hasOld)
    {
        const auto open = OpenFiles();
        const std::vector<std::string> before = Names();
        FailDisk(fault, Slow);
        const Failed failure = ReplaceFile(path, New);
        const auto did = [](const char* call) {
            return std::count(FailingDisk.Done.begin(), FailingDisk.Done.end(), call);
        };
        Calls = Real;

        // All or nothing, and nothing besides; only when all fails may a file that can't be removed stay.
        const bool renamed = did("Rename") == 1;
        std::vector<std::string> expected = before;
        if (renamed && !hasOld) expected.push_back("part.nc");
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(OpenFiles(), open);
        EXPECT_EQ(BytesOf(path), renamed ? New : hasOld ? Old : "");
        EXPECT_TRUE(Names() == expected || (fault.FromThereOn && !renamed));

        // The only failure with the new file in place is that of the folder's sync.
        if (failure) {
            EXPECT_FALSE(failure->Reason.empty());
            EXPECT_EQ(renamed,
                      failure->Reason == "the new file is in place, but the disk did not confirm it");
            EXPECT_TRUE(!renamed || did("Sync") == 1);
        } else {
            EXPECT_TRUE(renamed && did("Unlink") == 0);
            EXPECT_TRUE(Harmless()) << FailingDisk.Refused[0] << " failed and nobody was told";
        }

        // Nobody gets a right that he hadn't; with all calls well, owner and rights are the old ones.
        if (!hasOld) return;
        EXPECT_EQ(ModeOf(path) & ~mode_t{0664}, 0u);
        if (!FailingDisk.Refused.empty()) return;
        EXPECT_EQ(ModeOf(path), 0664u);
        EXPECT_TRUE(::getuid() != 0 || InfoOf(path).st_uid == Nobody);
    }
};

constexpr int FaultErrors[] = {ENOSPC, EIO, EACCES, EINTR};

} // namespace

TEST_F(FilesTest, SavingSurvivesEveryFailingCall)
{
    const fs::path link = In / "link.nc";
    struct Case {
        const char* Name;
        bool HasOld, ThroughLink;
    };
    for (const Case& c : {Case{"new", false, false},
                          {"old", true, false},
                          {"link", true, true},
                          {"dangling link", false, true}}) {
        for (const int error : FaultErrors) {
            for (const bool on : {false, true}) {
                // A call that is interrupted for ever is rightly tried for ever.
                if (on && error == EINTR) continue;
                int at = 0;
                do {
                    ++at;
                    SCOPED_TRACE(testing::Message() << c.Name << ", errno " << error << (on ? " from" : " at")
                                                    << " call " << at);
                    for (const std::string& name : Names()) fs::remove(In / name);
                    if (c.HasOld) PutOld();
                    if (c.ThroughLink) fs::create_symlink("part.nc", link);
                    SaveUnder({at, on, error}, c.ThroughLink ? link : Saved, c.HasOld);
                    EXPECT_EQ(fs::is_symlink(link), c.ThroughLink);
                    EXPECT_TRUE(error != EINTR || BytesOf(Saved) == New) << "an interrupted call ended it";
                } while (!FailingDisk.Refused.empty() && !HasFailure());
                EXPECT_GT(at, 12) << "the faults reached too little";
            }
        }
    }
}

TEST_F(FilesTest, NothingIsRenamedBeforeTheDiskHasIt)
{
    PutOld();
    FailDisk({}, Slow);
    ASSERT_FALSE(ReplaceFile(Saved, New));
    std::string order;
    for (const std::string& call : FailingDisk.Done)
        if (call == "Write" || call == "Sync" || call == "ReadAt" || call == "Rename") order += call[0];
    order.erase(std::unique(order.begin(), order.end()), order.end());
    EXPECT_EQ(order, "WSRS") << "write, sync, read back and rename, sync of the folder";
}

TEST_F(FilesTest, ADiskThatTakesEverythingAndKeepsLessIsFound)
{
    struct Case {
        const char* Name;
        ssize_t (*Write)(int, const void*, size_t);
    };
    const Case cases[] = {
        {"the last bytes lost",
         [](int file, const void* from, size_t count) { return Real.Write(file, from, count - 1) + 1; }},
        {"one bit turned",
         [](int file, const void* from, size_t count) {
             std::string bytes(static_cast<const char*>(from), count);
             bytes[count / 2] ^= 4;
             return Real.Write(file, bytes.data(), count);
         }},
        {"one byte too many",
         [](int file, const void* from, size_t count) {
             const ssize_t written = Real.Write(file, from, count);
             return Real.Write(file, "", 1) == 1 ? written : -1;
         }},
    };
    PutOld();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Calls.Write = c.Write;
        const Failed failure = ReplaceFile(Saved, New);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->Reason, "the file was not written correctly");
        EXPECT_EQ(BytesOf(Saved), Old);
        EXPECT_EQ(Names(), std::vector<std::string>{"part.nc"});
    }
    Calls.Write = [](int, const void*, size_t) -> ssize_t { return 0; };
    const Failed failure = ReplaceFile(Saved, New);
    ASSERT_TRUE(failure) << "a write that takes nothing";
    EXPECT_EQ(failure->Number, 61);
}

// What a filesystem doesn't offer is no failure: FAT has no rights, some servers no sync.
TEST_F(FilesTest, ADiskThatOffersLessStillSaves)
{
    PutOld();
    Calls.ChangeMode = [](int, mode_t) { return errno = EPERM, -1; };
    Calls.ChangeOwner = [](int, uid_t, gid_t) { return errno = EPERM, -1; };
    Calls.Sync = [](int) { return errno = EINVAL, -1; };
    EXPECT_FALSE(ReplaceFile(Saved, New));
    EXPECT_EQ(BytesOf(Saved), New);
}

// Rights of a group are nothing for another one.
TEST_F(FilesTest, AForeignGroupGetsNoRights)
{
    struct Case {
        const char* Name;
        int (*ChangeOwner)(int, uid_t, gid_t);
        mode_t Mode;
    };
    const Case cases[] = {
        {"both kept", [](int, uid_t, gid_t) { return 0; }, 0664},
        {"the group alone", [](int, uid_t owner, gid_t) { return errno = EPERM, owner + 1 == 0 ? 0 : -1; },
         0664},
        {"neither", [](int, uid_t, gid_t) { return errno = EPERM, -1; }, 0644},
    };
    Calls.FileStat = [](int file, struct stat* info) {
        const int result = Real.FileStat(file, info);
        ++info->st_uid, ++info->st_gid; // the saver is another than the owner of the old file
        return result;
    };
    for (const Case& c : cases) {
        PutOld();
        Calls.ChangeOwner = c.ChangeOwner;
        EXPECT_FALSE(ReplaceFile(Saved, New)) << c.Name;
        EXPECT_EQ(ModeOf(Saved), c.Mode) << c.Name;
    }
}

TEST_F(FilesTest, ShortWritesAndReadsAddUp)
{
    Calls = Slow;
    Calls.Write = [](int file, const void* from, size_t n) {
        EXPECT_EQ(ModeOf("/proc/self/fd/" + std::to_string(file)) & 077, 0u) << "a private file shown";
        return Slow.Write(file, from, n);
    };
    Put(Saved, Old);
    ASSERT_EQ(::chmod(Saved.c_str(), 0600), 0);
    std::string read;
    for (const std::string& bytes : {New, std::string(), std::string(1 << 20, 'x') + New}) {
        ASSERT_FALSE(ReplaceFile(Saved, bytes));
        ASSERT_FALSE(ReadWholeFile(Saved, read));
        EXPECT_TRUE(read == bytes) << bytes.size() << " bytes saved, " << read.size() << " read";
    }
    EXPECT_EQ(ModeOf(Saved), 0600u);
}

TEST_F(FilesTest, NewFilesFollowTheUmaskAndOtherNamesKeepTheOld)
{
    const mode_t umask = ::umask(027);
    EXPECT_FALSE(ReplaceFile(Saved, Old));
    ::umask(umask);
    EXPECT_EQ(ModeOf(Saved), 0640u);
    fs::create_hard_link(Saved, In / "backup.nc");
    EXPECT_FALSE(ReplaceFile(Saved, New));
    EXPECT_EQ(BytesOf(Saved), New);
    EXPECT_EQ(BytesOf(In / "backup.nc"), Old);
}

// Names of all kinds, as a user without special rights.
TEST_F(FilesTest, WhatCannotBeSavedOrReadSaysWhy)
{
    AsNobody nobody;
    fs::create_directories(In / "folder/closed");
    Put(In / "locked.nc", Old);
    Put(In / "secret.nc", Old);
    Put(In / "folder/closed/part.nc", Old);
    ASSERT_EQ(::mkfifo((In / "pipe").c_str(), 0666), 0);
    fs::create_symlink("circle", In / "circle");
    fs::create_symlink("folder", In / "to-folder");
    fs::create_symlink("gone/part.nc", In / "to-nowhere");
    fs::permissions(In / "locked.nc", fs::perms(0444));
    fs::permissions(In / "secret.nc", fs::perms(0222));
    fs::permissions(In / "folder/closed", fs::perms(0555));
    const std::vector<std::string> before = Names();

    struct Case {
        std::string Path;
        int Reading;
        const char* ReadingReason;
        int Writing;
        const char* WritingReason;
    };
    const Case cases[] = {
        {"folder", 75, "it is a folder", 75, "the target is a folder"},
        {"folder/", 75, "it is a folder", 75, "the target is a folder"},
        {"to-folder", 75, "it is a folder", 75, "the target is a folder"},
        {"pipe", 75, "it is not an ordinary file", 75, "the target is not an ordinary file"},
        {"gone/part.nc", 53, "the file does not exist", 75, "the folder does not exist"},
        {"gone/", 53, "the file does not exist", 75, "the folder does not exist"},
        {"to-nowhere", 53, "the file does not exist", 75, "the folder does not exist"},
        {"locked.nc/part.nc", 53, "the file does not exist", 75, "the folder does not exist"},
        {"circle", 75, "its links run in a circle", 75, "its links run in a circle"},
        {std::string(300, 'n'), 75, "the name is too long", 75, "the name is too long"},
        {std::string("locked.nc\0.nc", 13), 75, "the name cannot be used", 75, "the name cannot be used"},
        {"locked.nc", 0, "", 70, "no permission to write there"},
        {"folder/closed/part.nc", 0, "", 70, "no permission to write there"},
        {"folder/closed/new.nc", 53, "the file does not exist", 70, "no permission to write there"},
        {"secret.nc", 70, "no permission to read it", 0, ""},
    };
    const auto judge = [](const Failed& failure, int number, const std::string& reason) {
        EXPECT_EQ(failure ? failure->Number : 0, number);
        EXPECT_EQ(failure ? failure->Reason : "", reason);
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Path);
        const std::string path = In.string() + "/" + c.Path;
        std::string bytes = "untouched";
        judge(ReadWholeFile(path, bytes), c.Reading, c.ReadingReason);
        EXPECT_EQ(bytes, c.Reading == 0 ? Old : "untouched");
        judge(ReplaceFile(path, New), c.Writing, c.WritingReason);
        if (c.Writing == 0) continue;
        const Failed failure = AppendToFile(path, New);
        EXPECT_TRUE(failure ? failure->Number == c.Writing : c.Path == "folder/closed/part.nc");
    }
    EXPECT_EQ(Names(), before);
    EXPECT_EQ(BytesOf(In / "locked.nc"), Old);
    EXPECT_EQ(ModeOf(In / "secret.nc"), 0222u);
    judge(ReplaceFile("", New), 75, "the name cannot be used");
    fs::permissions(In / "folder/closed", fs::perms(0333));
    judge(ReplaceFile(In / "folder/closed/new.nc", New), 0, "");
    fs::permissions(In / "folder/closed", fs::perms(0777));
    EXPECT_EQ(BytesOf(In / "folder/closed/new.nc"), New);
}

TEST_F(FilesTest, APipeIsNotTouchedNorWaitedFor)
{
    const fs::path pipe = In / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0666), 0);
    std::string bytes;
    ::alarm(20); // who waits ends the test here
    FailDisk({}, Slow);
    EXPECT_TRUE(ReadWholeFile(pipe, bytes) && AppendToFile(pipe, New) && ReadWholeFile("/dev/zero", bytes));
    EXPECT_EQ(std::count(FailingDisk.Done.begin(), FailingDisk.Done.end(), "Open"), 0);

    // Something takes the name of a file in the moment between the look and the opening.
    Calls.Stat = [](const char*, struct stat* info) { return Real.Stat("/proc/self/status", info); };
    for (const std::string& other : {pipe.string(), std::string("/dev/null")})
        EXPECT_TRUE(ReadWholeFile(other, bytes) && AppendToFile(other, New)) << other;
    ::alarm(0);
}

TEST_F(FilesTest, LinksStayLinksHoweverTheyPoint)
{
    fs::create_directories(In / "disk/programs");
    fs::create_directory_symlink("disk/programs", In / "programs");
    fs::create_symlink("../second.nc",
                       In / "disk/programs/first.nc"); // beside the link itself, not beside In
    fs::create_symlink(In / "programs/third.nc", In / "disk/second.nc");
    for (const std::string& bytes : {Old, New}) {
        ASSERT_FALSE(ReplaceFile(In / "programs/first.nc", bytes));
        EXPECT_EQ(BytesOf(In / "disk/programs/third.nc"), bytes);
    }
    EXPECT_TRUE(fs::is_symlink(In / "disk/programs/first.nc"));
    EXPECT_TRUE(fs::is_symlink(In / "disk/second.nc"));
    fs::permissions(In / "disk", fs::perms(0777));
    fs::current_path(In / "disk");
    AsNobody nobody; // who can't write to just any folder that is taken for this one
    EXPECT_FALSE(ReplaceFile("bare.nc", New));
    fs::current_path("/");
    EXPECT_EQ(BytesOf(In / "disk/bare.nc"), New);
}

TEST_F(FilesTest, WhatACrashLeftDoesNotStopTheNextSave)
{
    static std::string taken;
    taken.clear();
    Calls.Open = [](const char* path, int flags, mode_t mode) {
        if ((flags & O_EXCL) != 0 && taken.empty()) Put(taken = path, "left by a crash");
        return Real.Open(path, flags, mode);
    };
    EXPECT_FALSE(ReplaceFile(Saved, New));
    EXPECT_EQ(BytesOf(Saved), New);
    EXPECT_EQ(BytesOf(taken), "left by a crash");
}

TEST_F(FilesTest, ReadingAndLoggingUnderEveryFailingCall)
{
    for (const int error : FaultErrors) {
        int at = 0;
        do {
            SCOPED_TRACE(testing::Message() << "errno " << error << " at call " << ++at);
            Put(Saved, Old);
            const auto open = OpenFiles();
            std::string bytes = "untouched";
            FailDisk({at, false, error}, Slow);
            const Failed failure = ReadWholeFile(Saved, bytes);
            const bool reached = !FailingDisk.Refused.empty();
            EXPECT_EQ(bytes, failure ? "untouched" : Old);
            // What was read is whole whether or not the file could be closed.
            EXPECT_EQ(failure.has_value(), reached && error != EINTR && FailingDisk.Refused[0] != "Close");

            FailDisk({at, false, error}, Slow);
            const Failed logFailure = AppendToFile(Saved, "log\n");
            EXPECT_EQ(logFailure.has_value(), !FailingDisk.Refused.empty() && error != EINTR);
            Calls = Real;
            EXPECT_EQ(OpenFiles(), open);
            EXPECT_TRUE(BytesOf(Saved).starts_with(Old));
            EXPECT_TRUE(logFailure || BytesOf(Saved) == Old + "log\n");
            if (!reached) break;
        } while (!HasFailure());
        EXPECT_GT(at, 5);
    }
}

TEST_F(FilesTest, ReadingKnowsItsBounds)
{
    std::string bytes = "untouched";
    Put(Saved, "");
    fs::resize_file(Saved, LargestFile + 1); // a hole, nothing on the disk
    FailDisk({}, Slow);
    const Failed failure = ReadWholeFile(Saved, bytes);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Reason, "the file is too large");
    EXPECT_EQ(std::count(FailingDisk.Done.begin(), FailingDisk.Done.end(), "ReadAt"), 0)
        << "it could be a slow disk";
    Calls = Real;

    // A file that grows while it is read can't get past the limit either.
    Put(Saved, Old);
    Calls.ReadAt = [](int, void* to, size_t n, off_t) {
        std::fill_n(static_cast<char*>(to), n, 'x');
        return static_cast<ssize_t>(n);
    };
    const Failed grown = ReadWholeFile(Saved, bytes);
    ASSERT_TRUE(grown);
    EXPECT_EQ(grown->Reason, "the file is too large");
    Calls.ReadAt = [](int, void*, size_t, off_t) -> ssize_t { throw std::bad_alloc(); };
    ASSERT_TRUE(ReadWholeFile(Saved, bytes));
    EXPECT_EQ(bytes, "untouched");
    Calls = Real;
    ASSERT_FALSE(ReadWholeFile("/proc/self/status", bytes)); // says that it holds 0 bytes
    EXPECT_TRUE(bytes.starts_with("Name:"));
}

TEST_F(FilesTest, FoldersAndRemoving)
{
    Put(In / "file", Old);
    fs::create_directories(In / "real");
    fs::create_directory_symlink("real", In / "link");
    fs::create_symlink("nothing", In / "dangling");
    struct Case {
        const char* Path;
        int Number; ///< 0: the folder is there afterwards
    };
    for (const Case& c : {Case{"a/b/c", 0},
                          {"a/b/c", 0},
                          {"a//d/", 0},
                          {"link/below", 0},
                          {"", 0},
                          {"file", 75},
                          {"file/below", 75},
                          {"dangling", 75}}) {
        SCOPED_TRACE(c.Path);
        const std::string path = In.string() + "/" + c.Path;
        const Failed failure = MakeFolders(path);
        EXPECT_EQ(failure ? failure->Number : 0, c.Number);
        EXPECT_EQ(fs::is_directory(path), c.Number == 0);
    }
    EXPECT_FALSE(MakeFolders("/"));
    EXPECT_TRUE(MakeFolders(""));

    EXPECT_TRUE(FileExists(In / "file"));
    for (const char* other : {"real", "link", "dangling", "missing", "file/"})
        EXPECT_FALSE(FileExists(In / other)) << other;
    EXPECT_FALSE(FileExists("/dev/null"));

    EXPECT_FALSE(AppendToFile(In / "log", "one\n"));
    EXPECT_FALSE(AppendToFile(In / "log", "two\n"));
    EXPECT_EQ(BytesOf(In / "log"), "one\ntwo\n");

    fs::create_symlink("file", In / "to-file");
    EXPECT_TRUE(RemoveFile(In / "to-file"));
    EXPECT_FALSE(RemoveFile(In / "to-file"));
    EXPECT_FALSE(RemoveFile(In / "a/b/c")) << "an empty folder";
    EXPECT_EQ(BytesOf(In / "file"), Old) << "the target went with the link";
}
