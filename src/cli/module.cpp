#include "cli/module.h"

#include "platform/platform.h"

#include <dlfcn.h>

namespace {

constexpr const char* FileName = "brixley-pictures.so";

void* OpenModule(std::string& why)
{
    const std::string folder = ThePlatform->ProgramFolder();
    for (const char* place : {"/", "/../lib/brixley/"}) {
        if (void* const module = dlopen((folder + place + FileName).c_str(), RTLD_NOW | RTLD_LOCAL))
            return module;
    }
    const char* const reason = dlerror();
    why = std::string("pictures need the module ") + FileName +
          (reason != nullptr ? std::string(": ") + reason : "");
    return nullptr;
}

} // namespace

PaintPictureRoutine* LoadPicturePainter(std::string& why)
{
    void* const module = OpenModule(why);
    if (module == nullptr) return nullptr;
    void* const routine = dlsym(module, PaintPictureName);
    if (routine == nullptr) why = std::string(FileName) + " is of another version";
    return reinterpret_cast<PaintPictureRoutine*>(routine);
}
