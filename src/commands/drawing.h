// drawing.h: how the editor and the drawing meet.

#pragma once

/// Opens the drawing, or brings it to the front; it is fitted and drawn. A program with errors isn't drawn:
/// nothing happens then.
void mnuDraw_Click();

/// The same behind an edit or a load, without a change of the active window.
void RefreshDrawing();

/// Back to the main window; the drawing stays open behind it.
void cmdEditor_Click();

/// Makes the drawing window anew and connects its controls.
void UnloadDrawing();

/// Saves the picture as it stands, by the ending of the file's name as SVG, PNG or PDF.
void cmdSavePicture_Click();
