// failing_disk.h: a disk without a disk's luck, for tests and scripts.
//
// The system calls of platform/files.h fail where they are told to, so that what a program promises about
// its files can be tried with every call failing in turn.

#pragma once

#include "platform/files.h"

#include <string>
#include <vector>

/// Which call fails: the At-th from now on (the first is 1, 0 for none), that one alone or all from there
/// on, and the errno that it leaves.
struct DiskFault {
    int At = 0;
    bool FromThereOn = false;
    int Error = 0;
};

/// What was asked of the failing disk with its fault: the number of calls, whether the latest failed, and the
/// names of those that were done and refused, as they stand in SystemCalls.
struct DiskRecord {
    DiskFault Fault;
    int Made = 0;
    bool LastFailed = false;
    std::vector<std::string> Done, Refused;
};
extern DiskRecord FailingDisk;

/// Puts a disk in place that is `real` but for the fault, and begins its record anew.
void FailDisk(const DiskFault& fault, const SystemCalls& real);

/// Every write fails for want of room, or works again. The other calls stay as they are.
void FillDisk(bool full);
