// failure_numbers.h: the numbers of run-time failures, as the log has them. core/failure.cpp describes them.

#pragma once

namespace Failures {
constexpr int InvalidCall = 5;
constexpr int Overflow = 6;
constexpr int SubscriptOutOfRange = 9;
constexpr int DivisionByZero = 11;
constexpr int FileNotFound = 53;
constexpr int DiskFull = 61;
constexpr int PastEndOfFile = 62;
constexpr int PermissionDenied = 70;
constexpr int PathAccess = 75;
constexpr int PrinterError = 482;
constexpr int PortAlreadyOpen = 8005;
constexpr int PortNotOpen = 8018;
} // namespace Failures
