// measure.h: the pointer over the drawing: coordinates in the title, distances by two clicks.
//
// Positions are twips of the canvas; the readout turns them back into program units. X on the lathes is
// read as a radius.

#pragma once

#include "core/control.h"

#include <string>
#include <string_view>

/// The pointer moved over the canvas: coordinates, and a running measurement, in the title and in frMeasure.
void frmDraw_MouseMove(double x, double y);

/// A click in the canvas: releases a "cmdWAIT"; brings frControls back; sets the zero point; or sets the
/// first point of a measurement, the second, and ends it.
void frmDraw_MouseDown(double x, double y);

/// Draws the mark of a point, inverting: drawn again it is gone. The point is what the next readout measures
/// from.
void MeasureCross(double x, double y);

/// A double click on a figure selects its line in the editor and brings it into view. Its first click set a
/// point, which is taken back. False, and nothing, where there is no figure.
bool frmDraw_DblClick(double x, double y);

/// [ESC] leaves what goes on: it aborts a walk, goes back from the choice of a zero point to the picture, or
/// ends a measurement and erases its marks.
void frmDraw_Escape();

/// Gives a measurement up, without erasing its marks.
void EndMeasure();

/// Works differences and distance out from the four boxes; a box without a number counts as 0.
void UpdateMeasure();

/// Writes the lengths in mm or inch anew, as the language in force has them.
void FollowMeasureLanguage();

/// A typed value in normal form: one minus sign in front or none, "0" when nothing is left.
std::string CleanMeasureText(std::string_view text);

// The four boxes.
void Measure_GotFocus(Control& box);
void Measure_LostFocus(Control& box);
bool Measure_KeyDown(Control& box, const KeyStroke& key);
char Measure_KeyPress(Control& box, char typed);
