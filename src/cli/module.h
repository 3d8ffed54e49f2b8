// module.h: the parts of the console program that need the toolkit, loaded when a command asks for one.
//
// The console starts a hundred times faster without them, and works without them where they aren't installed.

#pragma once

#include "drawing/picture_file.h"
#include "platform/port_session.h"
#include "platform/printer.h"

/// The routine of a module, from the module beside the program or in its library folder; null, and the reason
/// in `why`, when the module isn't there or is of another version.
PaintPictureRoutine* LoadPicturePainter(std::string& why);
PrintPdfRoutine* LoadPdfPrinter(std::string& why);
PortSessionRoutine* LoadPortSession(std::string& why);

/// Paints with the module, which is loaded by the first picture; "" when it can't be.
std::string PaintByModule(const PictureRequest& picture);
