// view.h: how program units lie on the canvas: scale, zero point, grid, fill.

#pragma once

#include "drawing/canvas.h"

/// Fits scale and zero point to the ranges of the axes that the last pass wrote, so that the whole travel
/// fits into the window less 1000 twips at the largest scale of the list, and draws. Does nothing unless
/// Shared.AutoFitPending is set. A travel too large for all scales gets 1/16, which is no item of the list.
void AutoFit();

/// Where the zero point has to lie at the scale in force so that the travel is in the middle.
void CenterZeroPoint();

/// The scale that an index of cboScale stands for; no index stands for 1.
float ScaleOfIndex(int index);
/// Puts a scale in force, and the division of the grid that belongs to it.
void SetScale(float scale);

/// Marks the pen position as the zero point: lines across the window, a cross and a circle.
void MakeZeroPoint();

/// Draws the grid through a zero point. The pen stays where it is.
void MakeGrid(double zeroX, double zeroY);

/// Black on the printable background, else white.
Color ContrastColor();

/// Sets the fill of closed figures by the boxes of grid and fill.
void ApplyFillStyle();

/// Steps the scale through its list, the point of the canvas fixed, and draws. This and MoveZeroPoint do
/// nothing during a measurement and while a zero point is being chosen.
void StepScale(int steps, double x, double y);

/// Moves the zero point across the canvas and draws.
void MoveZeroPoint(double across, double down);
