// receive_import.h: from the receive pane into the editor.

#pragma once

/// Loads the received text as the program, which then has no file, and closes the pane. A text that isn't
/// known as a program stays where it is, with a warning.
void cmdReceiveImport_Click();
