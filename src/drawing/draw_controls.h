// draw_controls.h: the drawing window's life, its floating frame and what its controls do.

#pragma once

/// Keeps frControls inside the window and lays its check boxes out by machine.
void ArrangeControls();

/// Puts the frame of a window that has just been opened and drawn into the corner where it covers least of
/// what the program draws. From then on it stays where the user wants it.
void PlaceControlsAside();

/// Shows the frame with its upper right corner about here, where its close button then is.
void ShowControlsAt(double x, double y);

/// The mouse is pressed on the frame: a measurement is given up and the frame begins to be dragged. False,
/// and nothing, while a walk runs.
bool frControls_MouseDown(float x, float y);
void frControls_DragOver();
/// The frame is dropped with the pointer here.
void frmDraw_DragDrop(float x, float y);

/// Enables or disables what would begin another picture. A walk and the choice of a zero point take it away.
void EnablePictureControls(bool enabled);
/// The same, and what would lead away from the picture: for a measurement.
void SetDrawControls(bool enabled);

/// Gives all check boxes the values of Shared.DrawBoxes; on the mill at least one tool view is on.
void ShowDrawBoxes();

// The window's events.
void frmDraw_Load();
/// The window was shown or got the focus: captions, boxes, and the drawing that is wanted.
void frmDraw_Activate();
void frmDraw_Resize();
/// Closes the window and its Program Lines; a walk that waits is ended.
void frmDraw_Close();

// The controls' events.
void chkShowRadii_Click();
void chkToolWidth_Click();
void chkToolCenter_Click();
void chkFillCycles_click();
void chkProgramWindow_Click();
void chkGrid_Click();
void chkPrintableBackground_Click();
void chkDiameter_Click();
void chkAutoRedraw_Click();
void cboRun_Click();
void cboScale_Click();
void cmdRedraw_Click();
void cmdAutoFit_Click();
void cmdZeroPoint_Click();
void cmdCloseControls_Click();
