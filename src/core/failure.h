// failure.h: run-time failures of a single statement, and the log that they leave.
//
// A statement that can fail (an overflow, a division by zero, a file) runs inside
// Attempt(): the failure is noted and the routine goes on with its next statement,
// whatever that then finds. No failure crosses a routine. What was noted is written
// to Errors.log once, when the event is over (WriteLog).

#pragma once

#include "platform/failure_numbers.h"
#include "platform/platform.h"

#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

/// Thrown by a conversion or operation that fails; caught by Attempt() alone.
struct RunTimeFailure {
    int Number;
};

/// The description of a failure number (platform/failure_numbers.h), as it stands in the log; "Unknown
/// failure" for any other number.
std::string_view FailureDescription(int number);

struct LogRecord {
    int Number;
    std::string Description;
    std::string Procedure;
    DateTime When;
};

/// What was logged since the program (or the command) began, and how much of it is on disk.
struct FailureLog {
    std::vector<LogRecord> Records;
    size_t Written = 0;

    /// The list index of the line that a pass is at, 0 outside a pass. A pass can walk a line a
    /// million times, so each kind of failure is kept once a line and pass.
    int Line = 0;
    std::set<std::tuple<int, int, std::string_view>> SeenInPass;
};
extern FailureLog Log;

/// Notes a failure of the named routine, with the present date and time.
void LogError(int number, std::string_view description, std::string_view procedure);

/// A pass over the program begins: from here on each kind of failure counts once a line.
void BeginLoggedPass();
/// The pass is over; failures are kept one by one again.
void EndLoggedPass();

/// Appends what was noted since the last call to Errors.log in AppDataPath(). A log whose first
/// field holds "No errors" counts as empty and is replaced. Without a per-user folder nothing is
/// written; logging never fails itself.
void WriteLog();

/// Notes a failure by its number alone; `procedure` must be a string literal.
void NoteFailure(int number, std::string_view procedure);

/// Runs one statement. Returns false when it failed; the failure is then in the log under `procedure`.
template <class Statement> bool Attempt(std::string_view procedure, Statement&& statement)
{
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const RunTimeFailure& failure) {
        NoteFailure(failure.Number, procedure);
        return false;
    }
}
