// interpreter.h: the check of the whole program.

#pragma once

/// Checks every line, follows the program from its first line and writes into each row what follows
/// from it: message, tool position, arc data, time and generated remarks. Fills the labels of program
/// and axes. Recomputes everything; keeps nothing from the run before.
void Interpreter();

/// In Run mode the pass stops in front of each line, selects it and waits for StepRequested. Goes on with a
/// waiting pass when a step was requested; does nothing when none waits. Runs when an event is over.
void ResumeInterpreter();

/// Forgets a pass that waits.
void ResetInterpreter();
