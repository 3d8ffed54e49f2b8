// sample_program.h: programs of any length to measure with.
//
// What a program is made of decides how long its lines take, so each machine repeats one block of lines
// as they occur in a real program: moves in both modes, arcs with and without M99, cycles with division
// of cut, threads, tool changes, empty lines and comments. Nothing in it is a fault; a program beyond
// what the control holds gets the message for that on its last line, and no other.

#pragma once

#include "core/shared_state.h"

#include <string>

/// The lines of a full program of MK4 and F1 that an end code has still to join.
constexpr int FullProgram = 209;

/// The bytes of a program file with so many lines, the last of them the machine's end code.
std::string SampleFile(MachineKind machine, int lines);

/// Starts anew with the program loaded and checked. Ends the process with a message when the program
/// has other faults than its length: times of a walk that ends early would mean nothing.
void LoadSample(MachineKind machine, int lines);
