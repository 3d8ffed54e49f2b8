// The settings files: what they bring back, and that nothing in them keeps the program from starting.

#include "cli/key_script.h"
#include "cli/open_program.h"
#include "commands/session.h"
#include "core/draw_window.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "settings/draw_settings.h"
#include "settings/editor_settings.h"
#include "settings/window_place.h"
#include "support/program.h"

#include <gtest/gtest.h>

namespace {

/// Starts as the window does, from a folder with these two files; "" for none.
void StartFrom(const Folder& folder, const std::string& editor, const std::string& draw = "")
{
    std::filesystem::remove(folder / "Settings.edt");
    std::filesystem::remove(folder / "Settings.drw");
    if (!editor.empty()) folder.Put("Settings.edt", WithCrLf(editor));
    if (!draw.empty()) folder.Put("Settings.drw", WithCrLf(draw));
    LoadOptions options;
    options.Settings = folder / "";
    BeginProgram(options);
}

std::string Profiles()
{
    return std::string(ActiveProfile().Name) + (Shared.Metric ? " mm" : " inch") + " rows " +
           std::to_string(lvCncProgram.RowCount());
}

TEST(Settings, WhatAFileSaysAndWhatItLeavesOut)
{
    const Folder folder;
    const std::string mill = folder.Put("mill.cnc", BytesOf(EXAMPLES_DIR "/f1-first-milling.cnc"));
    const std::string other = folder.Put("other.txt", "no program");
    struct Case {
        const char* Name;
        std::string File, Expected;
    };
    const Case cases[] = {
        {"no file at all: not even the blank row", "", "MK4 inch rows 0"},
        {"units and machine", "Metric=True\nMachine=MK2\n", "MK2 mm rows 1"},
        {"case and blanks of keys and words", " mEtRiC =  tRUE \n machine = f1 \n", "F1 mm rows 1"},
        {"brackets in keys, comments, lines without =", "[Metric]=True\n;Machine=MK2\nnonsense\nMachine=F1",
         "F1 mm rows 1"},
        {"an unknown machine", "Metric=True\nMachine=MK9\n", "MK4 mm rows 1"},
        {"the last file brings its machine and units",
         "LastFileUsed=" + mill + "\nMetric=False\nMachine=MK2\n", "F1 mm rows 17"},
        {"a last file that is gone", "LastFileUsed=" + mill + "x\nMetric=True\nMachine=MK2\n",
         "MK2 inch rows 1"},
        {"a last file that is none", "LastFileUsed=" + other + "\nMetric=True\nMachine=MK2\n",
         "MK2 inch rows 1"},
        {"the units in front of the last file: nothing is asked",
         "Metric=True\nLastFileUsed=" + mill + "\nMachine=MK2\n", "F1 mm rows 17"},
    };
    for (const Case& test : cases) {
        StartFrom(folder, test.File);
        if (test.Expected.find("rows 17") != std::string::npos) {
            EXPECT_EQ(frmMain.lblPath.Text, mill) << test.Name;
            EXPECT_EQ(Profiles().substr(0, 5), "F1 mm") << test.Name;
        } else {
            EXPECT_EQ(Profiles(), test.Expected) << test.Name;
        }
        EXPECT_FALSE(Shared.Changed) << test.Name;
        EXPECT_EQ(Console.Boxes.size(), test.Name == std::string("a last file that is none") ? 1U : 0U)
            << test.Name;
    }
}

TEST(Settings, TheFileOfTheCommandLineTakesThePlaceOfTheLastOne)
{
    const Folder folder;
    const std::string named = folder.Put("named.cnc", "");
    const struct {
        const char* Name;
        std::string File;
        std::optional<std::string> Argument;
        std::string Last;
        bool Metric, SelectsMachine;
    } cases[] = {
        {"none", "LastFileUsed=/x\nMetric=True\nMachine=F1\n", std::nullopt, "/x", false, true},
        {"one that is there", "LastFileUsed=/x\nMetric=True\nMachine=F1\n", named, named, false, false},
        {"one that isn't there", "LastFileUsed=/x\nMetric=True\nMachine=F1\n", "/y", "", true, true},
        {"no line names a last file", "Metric=True\nMachine=F1\n", named, named, true, true},
    };
    for (const auto& test : cases) {
        const EditorSettingsFile file = ReadEditorSettings(test.File, test.Argument);
        EXPECT_EQ(file.Values.LastFileUsed, test.Last) << test.Name;
        EXPECT_EQ(file.Values.Metric, test.Metric) << test.Name;
        EXPECT_EQ(file.SelectsMachine, test.SelectsMachine) << test.Name;
    }
}

/// The place of the main window as settings have it: height, left, top, width.
std::string PlaceAfter(const Folder& folder, const std::string& file)
{
    StartFrom(folder, file);
    return GeometryText(PlaceOf(frmMain.Window));
}

TEST(Settings, TheWindowEndsOnTheScreen)
{
    const Folder folder;
    const struct {
        const char *Name, *File, *Expected;
    } cases[] = {
        {"no file: as it is, in the middle", "", " 10000 , 6900 , 3100 , 15000 "},
        {"no line: the same", "Metric=True\n", " 10000 , 6900 , 3100 , 15000 "},
        {"no numbers: the same", "EditorWindow=a,b,c,d\n", " 10000 , 6900 , 3100 , 15000 "},
        {"all 0", "EditorWindow= 0 , 0 , 0 , 0 \n", " 8720 , 7500 , 3740 , 13800 "},
        {"left and top of 0 are none", "EditorWindow= 9000 , 0 ,-7, 12000 \n",
         " 9000 , 8400 , 3600 , 12000 "},
        {"of a larger screen", "EditorWindow= 9000 , 30000 , 20000 , 12000 \n",
         " 9000 , 16800 , 7200 , 12000 "},
        {"larger than the screen", "EditorWindow= 90000 , 9 , 9 , 90000 \n", " 16200 , 0 , 0 , 28800 "},
        {"larger than any screen", "EditorWindow= 1000000 , 0 , 0 , 1000000 \n", " 16200 , 0 , 0 , 28800 "},
        {"smaller than the panes", "EditorWindow= 9 , 300 , 400 , 9 \n", " 8720 , 300 , 400 , 11800 "},
    };
    for (const auto& test : cases) EXPECT_EQ(PlaceAfter(folder, test.File), test.Expected) << test.Name;
}

TEST(Settings, AResetKeepsLanguageAndMachineAlone)
{
    const Folder folder;
    const std::string module = folder.Put("mine.txt", WithCrLf("[menu File]\nNew=Neu\n"));
    const std::string file = "LanguageFileName=" + module +
                             "\nMachine=F1\nMetric=True\nFontName=Liberation Mono\nFontSize= 13 \n"
                             "Delete without confirm= 1 \nPort= 1 \nBaudTX=9600\n";
    for (const bool defaults : {false, true}) {
        if (defaults)
            folder.Put("DEFAULT.EDT", WithCrLf("Metric=True\nFeedA= 77 \nDrawWindow Active=True\n"));
        StartFrom(folder, file, "Grid=True\n");
        RunKeyScript("00{ENTER}1{ENTER}2{ENTER}3{ENTER}{ENTER}{ANSWER No}{MENU mnuReset}");
        EXPECT_EQ(Console.Boxes.size(), 1U);
        EXPECT_TRUE(std::filesystem::exists(folder / "Settings.edt"));
        EXPECT_EQ(Shared.FontName + Shared.FontSize, "Liberation Mono13");

        RunKeyScript("{ANSWER Yes}{MENU mnuReset}");
        EXPECT_EQ(Console.Boxes.size(), 2U) << "asked once more, and once alone";
        EXPECT_EQ(Profiles(), defaults ? "F1 mm rows 1" : "F1 inch rows 1");
        EXPECT_EQ(Shared.LanguageFileName, module);
        EXPECT_EQ(frmMain.mnuNew.Text, "Neu");
        EXPECT_EQ(Shared.FontName + Shared.FontSize, "Courier New10");
        EXPECT_EQ(frmMain.chkSettingsDWC.Value, 0);
        EXPECT_EQ(Shared.SettingsTX, "300,N,8,1");
        EXPECT_EQ(Shared.DrawBoxes.Grid, 0);
        EXPECT_EQ(frmMain.txtFeedA.Text, defaults ? "77" : "199");
        EXPECT_EQ(frmDraw.Window.Visible, defaults);
        EXPECT_EQ(std::filesystem::exists(folder / "Settings.edt"), defaults);
        EXPECT_FALSE(std::filesystem::exists(folder / "Settings.drw"));
        EXPECT_EQ(LogList(), "");
    }
}

TEST(Settings, TheModuleOfTheFolderWinsOverTheRememberedOne)
{
    const Folder folder;
    const std::string other = folder.Put("other.txt", WithCrLf("[menu File]\nNew=Other\nOpen=Other\n"));
    std::filesystem::create_directory(folder / "sub");
    const std::string elsewhere = folder.Put("sub/language.txt", WithCrLf("[menu File]\nNew=Elsewhere\n"));
    const auto names = [] {
        return frmMain.mnuNew.Text + "|" + frmMain.mnuOpen.Text + "|" + FileNameOf(Shared.LanguageFileName);
    };
    StartFrom(folder, "LanguageFileName=" + other + "\n");
    EXPECT_EQ(names(), "Other|Other|other.txt");
    StartFrom(folder, "LanguageFileName=" + elsewhere + "\n");
    EXPECT_EQ(names(), "Elsewhere|&Open...|language.txt");
    folder.Put("LANGUAGE.TXT", WithCrLf("[menu File]\nNew=Own\n"));
    for (const std::string& remembered : {folder / "LANGUAGE.TXT", other, folder / "gone.txt"}) {
        StartFrom(folder, "LanguageFileName=" + remembered + "\n");
        EXPECT_EQ(names(), "Own|&Open...|LANGUAGE.TXT") << remembered;
    }
    folder.Put("LANGUAGE.TXT", WithCrLf(";\n;a dummy\n[menu File]\nNew=Own\n"));
    StartFrom(folder, "LanguageFileName=" + other + "\n");
    EXPECT_EQ(names(), "Other|Other|other.txt");

    // What is kept of it doesn't depend on the folder that the program is started from.
    folder.Put("LANGUAGE.TXT", WithCrLf("[menu File]\nNew=Own\n"));
    const std::filesystem::path here = std::filesystem::current_path();
    std::filesystem::current_path(folder / "sub");
    LoadOptions options;
    options.Settings = "..";
    BeginProgram(options);
    std::filesystem::current_path(here);
    EXPECT_EQ(Shared.LanguageFileName, folder / "LANGUAGE.TXT");
}

TEST(Settings, SurviveTheirRoundTrip)
{
    const Folder folder;
    StartFrom(folder, "Metric=True\nMachine=F1\nHorizontal=True\nFeedA= 321 \nFeedB=7\nIncrColor=&HFF8000\n"
                      "ToolPosition= 1 \nDelete without confirm= 1 \nBaudTX=9600\nParityRX=E\nTXfilter = 0 \n"
                      "FontName=Liberation Mono\nFontSize = 13 \nEditorWindow= 10000 , 300 ,-5, 15000 \n"
                      "RecentFile1=/a/b [1].cnc\n");
    EXPECT_EQ(frmMain.Window.Left, 300);
    EXPECT_GE(frmMain.Window.Top, 0);
    RunKeyScript("{MENU mnuExit}");
    const std::string saved = BytesOf(folder / "Settings.edt");
    for (const char* line :
         {"\r\nHorizontal=True\r\n", "\r\nMachine=F1\r\n", "\r\nFeedA= 321 \r\n", "\r\nFeedB= 7 \r\n",
          "\r\nIncrColor=&HFF8000\r\n", "\r\nDelete without confirm= 1 \r\n", "\r\nToolPosition= 1 \r\n",
          "\r\nBaudTX=9600\r\n", "\r\nParityRX=E\r\n", "\r\nTXfilter = 0 \r\n",
          "\r\nFontName=Liberation Mono\r\n", "\r\nFontSize = 13 \r\n", "\r\nRecentFile1=/a/b [1].cnc\r\n"}) {
        EXPECT_NE(saved.find(line), std::string::npos) << line;
    }
    LoadOptions options;
    options.Settings = folder / "";
    BeginProgram(options);
    RunKeyScript("{MENU mnuExit}");
    EXPECT_EQ(BytesOf(folder / "Settings.edt"), saved);
}

TEST(Settings, WhatTheUserSeesIsSaved)
{
    const Folder folder;
    const struct {
        const char *Name, *Keys, *Line;
    } cases[] = {
        {"a preset in whose box the cursor still is", "{CLICK txtFeedA}77{CLOSE frmMain}", "FeedA= 77 "},
        {"presets cut by other units, back in the first ones",
         "{UNITS optSettingsInch}{UNITS optSettingsMm}{CLOSE frmMain}", "FeedA= 199 "},
        {"a font in whose box the cursor still is",
         "{CLICK cmdTopButtons(4)}{PICK tabSettings 5}{PICK cboFontName 3}{CLOSE frmMain}",
         "FontName=Liberation Mono"},
    };
    for (const auto& test : cases) {
        StartFrom(folder, "Metric=True\nMachine=MK4\nFeedA= 450 \n");
        RunKeyScript(test.Keys);
        EXPECT_NE(BytesOf(folder / "Settings.edt").find("\r\n" + std::string(test.Line) + "\r\n"),
                  std::string::npos)
            << test.Name;
    }
}

TEST(Settings, AnEmptyFileLeavesTheDefaults)
{
    const Folder folder;
    folder.Put("default.edt", WithCrLf("Metric=True\nMachine=F1\n"));
    folder.Put("Settings.edt", "");
    LoadOptions options;
    options.Settings = folder / "";
    BeginProgram(options);
    EXPECT_EQ(Profiles(), "F1 mm rows 1");
    EXPECT_TRUE(std::filesystem::exists(folder / "Settings.edt.bad"));
    EXPECT_EQ(LogList(), "");
}

TEST(Settings, AModuleOnTheCommandLineOpensNoProgram)
{
    const Folder folder;
    folder.Put("Settings.edt", WithCrLf("LastFileUsed=" EXAMPLES_DIR "/f1-first-milling.cnc\nMetric=True\n"
                                        "Machine=MK2\nFeedA= 450 \n"));
    LoadOptions options;
    options.Settings = folder / "";
    BeginProgram(options);
    const std::string german = LANGUAGES_DIR "/German.txt";
    ResetState();
    StartProgram(german);
    EXPECT_EQ(Profiles(), "MK2 mm rows 1");
    EXPECT_EQ(frmMain.txtFeedA.Text, "450");
    EXPECT_EQ(frmMain.lblPath.Text, "");
    EXPECT_EQ(Shared.LanguageFileName, german);
    EXPECT_FALSE(Shared.Changed);
}

TEST(Settings, TheFilesLineByLine)
{
    EditorSettings settings;
    settings.LanguageFileName = "/l/[x].txt";
    settings.LastFileUsed = "/a\n/b.cnc";
    settings.EditorWindow = Geometry{9000, -15, 20, 12000};
    settings.FontName = "Courier New";
    settings.FontSize = "10.5";
    settings.RecentFiles[0] = "/r.cnc";
    EXPECT_EQ(
        EditorSettingsText(settings),
        WithCrLf(";BXL 1.6.0 EDITOR SETTINGS user file\n\n;Recent files\nLanguageFileName=/l/[x].txt\n"
                 "LastFileUsed=\n\n;Settings\nHorizontal=False\nMetric=False\nMachine=MK4\n"
                 "AutoWidth=False\nFeedA= 200 \nFeedB= 50 \nIncrColor=&HFF\nAbsColor=&HFF0000\n"
                 "Delete without confirm= 0 \n\n;Checkboxes Editor\nToolPosition= 0 \n"
                 "LineProperties= 0 \nFileNotes= 0 \nGcode= 0 \nMachineTime= 0 \n\n"
                 ";Comm Settings General\nPort= 1 \nComPortEnable=False\n\n;Comm Settings Transmit\n"
                 "BaudTX=300\nParityTX=N\nDataBitsTX=8\nStopBitsTX=1\nXonXoffTX= 0 \nDtrDsrTX= 0 \n"
                 "RtsCtsTX= 0 \nTXfilter = 1 \n\n;Comm Settings Receive\nBaudRX=300\nParityRX=N\n"
                 "DataBitsRX=8\nStopBitsRX=1\nXonXoffRX= 0 \nDtrDsrRX= 0 \nRtsCtsRX= 0 \n"
                 "RXfilter= 1 \n\n;Printer Settings\nFontName=Courier New\nFontSize = 10.5 \n\n"
                 ";Windows Parameters HLTW\nEditorWindow= 9000 ,-15 , 20 , 12000 \n"
                 "DrawWindow Active=False\n\n;Brixley: files opened or saved last\nRecentFile1=/r.cnc\n"));
    DrawSettings draw;
    draw.Boxes.ToolCenter = draw.Boxes.AutoRedraw = 1;
    draw.DrawWindow = Geometry{6200, 0, -30, 7000};
    draw.ProgramWindow = Geometry{3000, 1, 2, 11790};
    draw.ProgramWindowActive = true;
    EXPECT_EQ(
        DrawSettingsText(draw),
        WithCrLf(";BXL 1.6.0 DRAW SETTINGS user file\n\n;Checkboxes draw mode\nRadii=False\nToolWidth=False\n"
                 "ToolCenter=True\nFillCycles=False\nProgram=False\nGrid=False\nBackground=False\n"
                 "Diameter=False\nAutoRedraw=True\n\n;Windows Parameters HLTW\n"
                 "DrawWindow= 6200 , 0 ,-30 , 7000 \nProgramWindow= 3000 , 1 , 2 , 11790 , Active\n"));
}

TEST(Settings, ABadValueCostsItsKeyAlone)
{
    const Folder folder;
    StartFrom(folder,
              "Metric=True\nMachine=F1\nIncrColor=&H1000000\nFeedA=x\nBaudTX=301\nPort=5\nFeedB=60\n");
    EXPECT_EQ(Shared.IncrColor, 255);
    EXPECT_EQ(Shared.FeedA, "200 ");
    EXPECT_EQ(Shared.FeedB, "60 ");
    EXPECT_EQ(Shared.Port, 1);
    EXPECT_EQ(Shared.SettingsTX, "300,N,8,1");
    EXPECT_NE(BytesOf(folder / "Settings.edt.bad").find("BaudTX=301"), std::string::npos);
    EXPECT_EQ(LogList(), "");
}

TEST(Settings, FeedsAreClampedByTheUnitsThatHoldAtTheEnd)
{
    const Folder folder;
    const std::string mill = folder.Put("mill.cnc", BytesOf(EXAMPLES_DIR "/f1-first-milling.cnc"));
    StartFrom(folder, "LastFileUsed=" + mill + "\nMetric=True\nFeedA= 450 \n");
    EXPECT_EQ(frmMain.txtFeedA.Text, "450");
}

TEST(Settings, DrawingFileAndWindowPlaces)
{
    Start("MK4 mm");
    const DrawSettings read = ReadDrawSettings("Grid=True\r\nRadii=true\r\ngrid=False\r\n"
                                               "ProgramWindow= 3000 , 10 , 20 , 11000 , Inactive\r\n");
    EXPECT_EQ(read.Boxes.Grid, 1);
    EXPECT_EQ(read.Boxes.Radii, 0);
    EXPECT_FALSE(read.DrawWindow.has_value());
    EXPECT_EQ(read.ProgramWindow.value_or(Geometry{}).Width, 11000);
    EXPECT_FALSE(read.ProgramWindowActive);
    const DrawSettings wordless = ReadDrawSettings("ProgramWindow=3000,10,20,11000\n");
    EXPECT_EQ(wordless.ProgramWindow.value_or(Geometry{}).Width, 11000);
    EXPECT_FALSE(wordless.IsDamaged);
    EXPECT_NE(DrawSettingsText(read).find("\r\nProgramWindow= 3000 , 10 , 20 , 11000 , Inactive\r\n"),
              std::string::npos);
    const auto text = [](const Geometry& at) { return GeometryText(at); };
    EXPECT_EQ(text(DrawWindowPlace({9999, 9999, 9999, 9999})), " 6200 , 10900 , 5000 , 7000 ");
    EXPECT_EQ(text(DrawWindowPlace({100, -50, -1, 100})), " 6200 , 0 , 0 , 7000 ");
    EXPECT_EQ(text(DrawWindowPlace({9000, 28000, 16000, 12000})), " 9000 , 16800 , 7200 , 12000 ");
    EXPECT_EQ(text(DrawWindowPlace({1000000, 0, 0, 1000000})), " 16200 , 0 , 0 , 28800 ");
    EXPECT_EQ(text(ProgramWindowPlace({3000, 25921, -1, 11000})), " 3000 , 20160 , 0 , 11000 ");
    EXPECT_EQ(text(ProgramWindowPlace({0, 25920, 20, 0})), " 1500 , 25920 , 20 , 3000 ");
    EXPECT_EQ(text(ProgramWindowPlace({1000000, 10, 20, 1000000})), " 16200 , 10 , 20 , 28800 ");
}

/// Whatever happened to a file, the program starts, is usable, logs nothing and writes the file anew.
void ExpectAStart(const Folder& folder, const std::string& editor, const std::string& draw,
                  const std::string& what)
{
    StartFrom(folder, editor, draw);
    RunKeyScript("{UNITS optSettingsMm}00{ENTER}1{ENTER}2{ENTER}{ENTER}{MENU mnuDraw}");
    ASSERT_EQ(LogList(), "") << what;
    ASSERT_GE(frmMain.Window.Width, MinWidth) << what;
    ASSERT_LE(frmMain.Window.Left + frmMain.Window.Width, Shared.Screen.Width) << what;
    // Writing is slow, since it is made sure of: some of the starts are enough.
    static int count = 0;
    if (++count % 16 != 0) return;
    RunKeyScript("{ANSWER No}{MENU mnuExit}");
    ASSERT_TRUE(Shared.Ended) << what;
    ASSERT_TRUE(BytesOf(folder / "Settings.edt").starts_with(";BXL ")) << what;
}

TEST(Settings, NoDamageKeepsTheProgramFromStarting)
{
    const Folder folder;
    StartFrom(folder, "Metric=True\nMachine=F1\n", "Grid=True\n");
    RunKeyScript("{MENU mnuDraw}{CLOSE frmDraw}{MENU mnuExit}");
    const std::string good[] = {BytesOf(folder / "Settings.edt"), BytesOf(folder / "Settings.drw")};
    for (int file = 0; file < 2; ++file) {
        const auto start = [&](const std::string& damaged, const std::string& what) {
            ExpectAStart(folder, file == 0 ? damaged : good[0], file == 1 ? damaged : good[1], what);
        };
        for (size_t at = 0; at < good[file].size() && !::testing::Test::HasFatalFailure(); ++at) {
            const std::string where = " at " + std::to_string(at) + " of file " + std::to_string(file);
            start(good[file].substr(0, at), "cut" + where);
            std::string flipped = good[file];
            flipped[at] = static_cast<char>(flipped[at] ^ (1 << at % 8));
            start(flipped, "flipped" + where);
            if (good[file][at] != '\n') continue;
            const size_t begin = good[file].rfind('\n', at - 1) + 1;
            start(good[file].substr(0, begin) + good[file].substr(at + 1), "dropped line" + where);
            start(good[file].substr(0, at + 1) + good[file].substr(begin), "doubled line" + where);
        }
    }
}

} // namespace
