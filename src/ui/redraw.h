// redraw.h: an open drawing that follows the program.

#pragma once

/// The program was edited: an open drawing with AutoRedraw on follows when the event is over.
void FollowEdit();

/// A program was loaded: an open drawing follows, whatever its box says.
void FollowLoad();
