// The settings files: what they bring back, and that nothing in them keeps the program from starting.

#include "cli/key_script.h"
#include "cli/open_program.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "settings/draw_settings.h"
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
    }
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
    EXPECT_NE(DrawSettingsText(read).find("\r\nProgramWindow= 3000 , 10 , 20 , 11000 , Inactive\r\n"),
              std::string::npos);
    const auto text = [](const Geometry& at) { return GeometryText(at); };
    EXPECT_EQ(text(DrawWindowPlace({9999, 9999, 9999, 9999})), " 6200 , 10900 , 5000 , 7000 ");
    EXPECT_EQ(text(DrawWindowPlace({100, -50, -1, 100})), " 6200 , 0 , 0 , 7000 ");
    EXPECT_EQ(text(DrawWindowPlace({9000, 28000, 16000, 12000})), " 9000 , 16800 , 7200 , 12000 ");
    EXPECT_EQ(text(ProgramWindowPlace({3000, 27000, -1, 11000})), " 3000 , 20160 , 0 , 11000 ");
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
            if (at % 2 == 0) start(good[file].substr(0, at), "cut" + where);
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
