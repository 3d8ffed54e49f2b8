#include "cli/module.h"

#include "platform/platform.h"

#include <dlfcn.h>

namespace {

void* LoadRoutine(const std::string& file, const char* routine, const std::string& what, std::string& why)
{
    const std::string folder = ThePlatform->ProgramFolder();
    void* module = nullptr;
    for (const char* place : {"/", "/../lib/brixley/modules/"}) {
        module = dlopen((folder + place + file).c_str(), RTLD_NOW | RTLD_LOCAL);
        if (module != nullptr) break;
    }
    if (module == nullptr) {
        const char* const reason = dlerror();
        why = what + " need the module " + file + (reason != nullptr ? std::string(": ") + reason : "");
        return nullptr;
    }
    void* const found = dlsym(module, routine);
    if (found == nullptr) why = file + " belongs to another version";
    return found;
}

} // namespace

PaintPictureRoutine* LoadPicturePainter(std::string& why)
{
    return reinterpret_cast<PaintPictureRoutine*>(
        LoadRoutine("brixley-pictures.so", PaintPictureName, "pictures", why));
}

PrintPdfRoutine* LoadPdfPrinter(std::string& why)
{
    return reinterpret_cast<PrintPdfRoutine*>(
        LoadRoutine("brixley-pictures.so", PrintPdfName, "PDF files", why));
}

PortSessionRoutine* LoadPortSession(std::string& why)
{
    return reinterpret_cast<PortSessionRoutine*>(
        LoadRoutine("brixley-serial.so", PortSessionName, "serial ports", why));
}

std::string PaintByModule(const PictureRequest& picture)
{
    std::string why;
    PaintPictureRoutine* const paint = LoadPicturePainter(why);
    return paint == nullptr ? "" : paint(picture);
}
