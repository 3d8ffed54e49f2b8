// read_settings.cpp: any bytes at all, read as a settings file of each kind and as a language module.
//
// Besides what the sanitizers see: what was read is written in a form that reads the same, window places end
// on the screen, and lists and tables keep their lengths.

#include "commands/session.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "platform/scripted.h"
#include "settings/draw_settings.h"
#include "settings/editor_settings.h"
#include "settings/language.h"
#include "settings/window_place.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

void Require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

void ReadAsEditorSettings(std::string_view bytes)
{
    const EditorSettingsFile first = ReadEditorSettings(bytes, std::nullopt);
    const std::string text = EditorSettingsText(first.Values);
    const EditorSettingsFile second = ReadEditorSettings(text, std::nullopt);
    Require(!second.IsDamaged, "what was written isn't damaged");
    // With a last file the units are the file's own, and a saved value isn't read again.
    EditorSettings again = second.Values;
    again.Metric = first.Values.Metric;
    Require(EditorSettingsText(again) == text, "the editor's settings read as they were written");
    Require(first.Values.Port >= 1 && first.Values.Port <= 4, "the port is one of four");
    Require(first.Values.IncrColor >= 0 && first.Values.IncrColor <= 0xFFFFFF, "a colour has 24 bits");
    const Geometry place = OnScreen(first.Values.EditorWindow.value_or(Geometry{}), MinHeight, MinWidth);
    Require(place.Left >= 0 && place.Top >= 0 && place.Width >= MinWidth, "the window is on the screen");
}

void ReadAsDrawSettings(std::string_view bytes)
{
    const DrawSettings first = ReadDrawSettings(bytes);
    const std::string text = DrawSettingsText(first);
    Require(DrawSettingsText(ReadDrawSettings(text)) == text,
            "the drawing's settings read as they were written");
    if (first.DrawWindow) {
        const Geometry place = DrawWindowPlace(*first.DrawWindow);
        Require(place.Left >= 0 && place.Top >= 0 && place.Height >= 6200, "the drawing is on the screen");
    }
}

void ReadAsModule(std::string_view bytes)
{
    const size_t codes = frmMain.lstMK4Gcodes.Items.size(), tabs = frmMain.tabSettings.Items.size();
    ReadLanguageModule(bytes);
    ShowDrawCaptions();
    Require(frmMain.lstMK4Gcodes.Items.size() == codes, "a code list keeps its length");
    Require(frmMain.tabSettings.Items.size() == tabs, "the tabs keep their number");
    Require(!Tr("the disk is full", {}).empty(), "no text is lost");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static ScriptedPlatform platform;
    ThePlatform = &platform;
    ResetState();
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    ReadAsEditorSettings(bytes);
    ReadAsDrawSettings(bytes);
    ReadAsModule(bytes);
    return 0;
}
