// interpreter.h: the check of the whole program.

#pragma once

/// Checks every line, follows the program from its first line and writes into each row what follows
/// from it: message, tool position, arc data, time and generated remarks. Fills the labels of program
/// and axes. Recomputes everything; keeps nothing from the run before.
void Interpreter();
