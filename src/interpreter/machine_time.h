// machine_time.h: the machine time of a line, and the range of the axes.

#pragma once

#include "interpreter/pass.h"

#include <string>

/// Works out the line's time, writes its cell and adds it to the total. The estimate takes every feed
/// per minute.
void AddLineTime(Pass& pass, ProgramLine& row);

/// Widens the axes' ranges by the tool's position and shows those that changed; all of them at the first
/// line of a walk. The ranges begin at the zero point.
void UpdateAxes(Pass& pass);

/// Hours, minutes and seconds with two digits each, "00:01:30"; halves of a second count up.
std::string MakeTimeString(float seconds);
