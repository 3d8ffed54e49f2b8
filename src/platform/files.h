// files.h: the files of the machine.
//
// Everything that the program reads, saves, logs or removes goes through these few routines, so what
// a full disk, a pulled USB stick or a read-only folder does to a user's program is decided once.
// Saving never touches the old file: the new one is finished beside it, proved, and put in its place.
//
// Paths are byte strings as Linux takes them (UTF-8 by habit, cut at "/"), relative ones from the
// current folder. An empty path and one with a zero byte in it are refused. Nothing here throws,
// asks or blocks on a pipe; one thread at a time.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

/// The system calls that these routines are made of, each as the system has it: -1 and errno on failure.
/// A test puts its own routines here to let any of them fail.
struct SystemCalls {
    int (*Open)(const char* path, int flags, mode_t mode);
    int (*Close)(int file);
    ssize_t (*ReadAt)(int file, void* to, size_t count, off_t at);
    ssize_t (*Write)(int file, const void* from, size_t count);
    int (*Sync)(int file);
    int (*DropCache)(int file); ///< lets the next read come from the disk, where the system can
    int (*Stat)(const char* path, struct stat* info);
    int (*FileStat)(int file, struct stat* info);
    int (*ChangeMode)(int file, mode_t mode);
    int (*ChangeOwner)(int file, uid_t owner, gid_t group);
    int (*Access)(const char* path, int wanted); ///< judged by the effective user, as open is
    ssize_t (*ReadLink)(const char* path, char* to, size_t count);
    int (*Rename)(const char* from, const char* to);
    int (*Unlink)(const char* path);
    int (*MakeFolder)(const char* path, mode_t mode);
};

extern SystemCalls Calls;

/// Why a file could not be read or written. Number is a run-time failure number: 53 file not found,
/// 61 disk full, 70 permission denied, 75 path or file access. Reason is a part of a sentence in the
/// user's words ("the disk is full"), never empty; it follows "could not be saved: " and the like.
struct FileFailure {
    int Number;
    std::string Reason;
};

/// The largest file that is read, in bytes: some hundred times what the longest program takes.
constexpr size_t LargestFile = size_t{256} << 20;

/// Reads a file of up to LargestFile bytes into `bytes`, which is left as it was on a failure.
/// A folder, pipe, socket or device is refused at once and is not even opened: opening alone can
/// wait for ever, wake a writer, or move the lines of a serial port with a machine at its other end.
std::optional<FileFailure> ReadWholeFile(const std::string& path, std::string& bytes);

/// Saves: puts `bytes` in place of what the file `path` holds, or makes the file, all or nothing.
///
/// On a failure the file is as it was before, or still missing, and nothing is left beside it. One
/// exception, told by its Reason: when the disk doesn't confirm the renaming (the fsync of the folder
/// fails), the failure is returned although the new file is in place and whole, since a power cut
/// could still bring the old one back. A filesystem or a folder that offers no such confirmation
/// (EINVAL, ENOTSUP; a folder that may be written but not read) is not at fault: no failure.
///
/// - A symbolic link stays one. Its target is replaced, or made where the link points at nothing yet.
/// - The rights (0777) of an old file are kept, its owner and group where the system allows. Where
///   the group can't be kept, the new group gets no right that others don't have. Set-id bits, access
///   lists and extended attributes are not kept. A new file gets what the umask leaves of 0666.
/// - A file that the user may not write is refused, although its folder would allow to replace it.
///   A file in a folder that may not be written is refused too: writing it in place could lose it.
/// - Of a file with several names (hard links) the one that was saved gets the new content, the others
///   keep the old: a copy made that way is a backup to most who make one, and stays one.
/// - A folder, pipe, socket or device as target is refused.
///
/// After a crash or a power cut a ".brixley-PID-N.tmp" may stand beside the file, which is whole.
std::optional<FileFailure> ReplaceFile(const std::string& path, std::string_view bytes);

/// Adds `text` at the end of a file, for a log; makes the file when it is missing, not its folder.
/// What was there stays on any failure; a part of `text` may then stand behind it. Not forced to the
/// disk: it outlives the program, and a log is not worth a wait on each record. Refuses what
/// ReadWholeFile refuses, of any size though.
std::optional<FileFailure> AppendToFile(const std::string& path, std::string_view text);

/// Makes a folder and all that are missing above it. One that is there already, or a link to one, is
/// fine; anything else of that name is a failure. Folders made before a failure stay.
std::optional<FileFailure> MakeFolders(const std::string& path);

/// True when `path` is, or links to, a regular file: one that ReadWholeFile doesn't refuse by its kind.
/// False also where that can't be found out, as in a folder that may not be searched.
bool FileExists(const std::string& path);

/// Whether there is a file or folder of that path.
bool PathExists(const std::string& path);

/// Whether two paths lead to one file, whatever names and links they go by; also where they are the same
/// text.
bool IsSameFile(const std::string& one, const std::string& other);

/// The names of the files in a folder that have this ending, sorted; none when there is no such folder.
std::vector<std::string> FilesIn(const std::string& folder, const std::string& ending);

/// The path of a file in a folder, by its name with the letters A to Z in any case; folder and name as given
/// when there is none.
std::string FindFile(const std::string& folder, const std::string& name);

/// Removes a file; of a link the link, not its target. True when that was done, so false for one that
/// was missing. Never removes a folder.
bool RemoveFile(const std::string& path);
