// Drawings on paper: which way up, how large, what stands beside them, and that printing waits for nothing.

#include "drawing/printing.h"

#include "commands/drawing.h"
#include "commands/session.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/text.h"
#include "drawing/drawing_page.h"
#include "drawing/drawing_state.h"
#include "drawing/walk.h"
#include "support/program.h"
#include "ui/choice.h"

#include <gtest/gtest.h>

namespace {

/// Letters as wide as high.
class Square : public Face
{
public:
    double Width(std::string_view text, double points) const override
    {
        return static_cast<double>(CharacterCount(text)) * points * 35.28;
    }
    double LineHeight(double points) const override { return points * 35.28; }
};

void OpenDrawing(const char* program)
{
    Start("MK4 mm");
    Enter(program);
    frmMain.lblPath.Text = "/parts/pin.cnc";
    mnuDraw_Click();
    AfterEvent();
}

const char* const Pin = "G00 X2000 Z100 / G01 X2000 Z-1000 F50 / G00 X2500 Z100 / M30";

PrintedImage ImageOf(const PrintJob& job)
{
    return job.Items.at(0).Image.value();
}

} // namespace

TEST(Printing, APictureKeepsItsSizeOrIsFittedToThePage)
{
    // The page is 19000 by 27700; a twip is 1.7639 of its units.
    const struct {
        const char* Name;
        int Width, Height;
        Orientation Across;
        double PaperWidth, PaperHeight;
    } cases[] = {
        {"keeps its size", 12000, 9000, Orientation::Landscape, 21167, 15875},
        {"as high as wide", 9000, 9000, Orientation::Portrait, 15875, 15875},
        {"wider than the page", 20000, 10000, Orientation::Landscape, 27700, 13850},
        {"higher than the page lies", 16000, 12000, Orientation::Landscape, 25333, 19000},
        {"higher than the page stands", 9000, 18000, Orientation::Portrait, 13850, 27700},
        {"wider than the page stands", 12000, 12000, Orientation::Portrait, 19000, 19000},
        {"a twip too wide", 15704, 9000, Orientation::Landscape, 27700, 15875},
    };
    OpenDrawing(Pin);
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        frmDraw.Window.Width = row.Width;
        frmDraw.Window.Height = row.Height;
        Desk.Printer.Jobs.clear();
        EXPECT_TRUE(PrintPictureToFitPage());
        const PrintJob& job = Desk.Printer.Jobs.at(0);
        EXPECT_EQ(job.Orientation, row.Across);
        EXPECT_EQ(ImageOf(job).PaperWidth, row.PaperWidth);
        EXPECT_EQ(ImageOf(job).PaperHeight, row.PaperHeight);
        EXPECT_EQ(job.Items.at(1).Text, "/parts/pin.cnc");
    }
}

TEST(Printing, ADrawingIsPrintedOnWhiteAndTheWindowComesBackBlack)
{
    for (const bool follows : {false, true}) {
        OpenDrawing(Pin);
        SetCheck(frmDraw.chkAutoRedraw, follows);
        PickItem(frmDraw.cboRun, static_cast<int>(RunChoice::Step));
        EndDrawing();
        ASSERT_EQ(Picture.Settings().Back, Colors::Black);
        cmdPrint_Click();
        ASSERT_EQ(Desk.Printer.Jobs.size(), 1u);
        EXPECT_EQ(ImageOf(Desk.Printer.Jobs[0]).Ground, Colors::White);
        EXPECT_EQ(Picture.Settings().Back, Colors::Black);
        EXPECT_EQ(frmDraw.chkPrintableBackground.Value, 0);
        EXPECT_FALSE(DrawSlot.IsWaiting()) << "a step is waited for";
        EXPECT_FALSE(DrawSlot.WithoutWaits);
        EXPECT_TRUE(frmDraw.cmdPrint.Enabled);
    }
    // On white already, the picture is printed as it stands.
    SetCheck(frmDraw.chkPrintableBackground, true);
    EndDrawing();
    const int drawn = Picture.Generation();
    cmdPrint_Click();
    EXPECT_EQ(Desk.Printer.Jobs.size(), 2u);
    EXPECT_EQ(Picture.Generation(), drawn);

    // The box is marked, but the picture was not drawn since.
    OpenDrawing(Pin);
    SetCheck(frmDraw.chkAutoRedraw, false);
    SetCheck(frmDraw.chkPrintableBackground, true);
    ASSERT_EQ(Picture.Settings().Back, Colors::Black);
    cmdPrint_Click();
    EXPECT_EQ(ImageOf(Desk.Printer.Jobs.at(0)).Ground, Colors::White);
}

TEST(Printing, WhatCannotBePrintedIsToldOrLeft)
{
    OpenDrawing(Pin);
    Desk.Printer.Fault = "the printer accepts no pages";
    cmdPrint_Click();
    ASSERT_EQ(Desk.Boxes.size(), 1u);
    EXPECT_EQ(Desk.Boxes[0].Box.Text, "Printing failed: the printer accepts no pages");
    EXPECT_EQ(LogList(), "482 PrintPictureToFitPage");
    EXPECT_EQ(frmDraw.chkPrintableBackground.Value, 0);

    Desk.Printer.Fault.clear();
    Shared.ErrorsPresent = true;
    cmdPrint_Click();
    EXPECT_TRUE(Desk.Printer.Jobs.empty());
    EXPECT_EQ(Desk.Boxes.size(), 1u);

    Shared.ErrorsPresent = false;
    lvCncProgram.Rows.clear();
    cmdPrint_Click();
    EXPECT_TRUE(Desk.Printer.Jobs.empty());
    EXPECT_EQ(Desk.Boxes.at(1).Box.Text, "No Lines of code present");
}

TEST(Printing, AScaleBarIsEasilyReadOff)
{
    const struct {
        double Unit; ///< 1/100 mm or 1/1000 inch on paper
        bool Metric;
        const char* Label;
        double Length;
    } cases[] = {
        {1, true, "50 mm", 5000},      {2, true, "20 mm", 4000},        {0.5, true, "100 mm", 5000},
        {6, true, "10 mm", 6000},      {6.001, true, "5 mm", 3000.5},   {1000, true, "0.05 mm", 5000},
        {2.54, false, "2 inch", 5080}, {25.4, false, "0.2 inch", 5080}, {0.001, true, "50000 mm", 5000},
    };
    for (const auto& row : cases) {
        const ScaleBar bar = ScaleBarOf(row.Unit, row.Metric, 6000, row.Metric ? "%1 mm" : "%1 inch");
        EXPECT_EQ(bar.Label, row.Label) << row.Unit;
        EXPECT_NEAR(bar.Length, row.Length, 0.01) << row.Unit;
    }
}

TEST(Printing, PathAndScaleBarNeverStandAcrossThePicture)
{
    const Square letters;
    const std::string longPath = "/" + std::string(3000, 'x');
    for (const double paperHeight : {100.0, 12000.0, 17900.0, 18000.0}) {
        for (const std::string& path : {std::string(), std::string("/parts/pin.cnc"), longPath}) {
            SCOPED_TRACE(std::to_string(paperHeight) + " " + path.substr(0, 20));
            const PageSize page{26700, 18000};
            PrintJob job;
            PrintedImage image;
            image.Width = image.Height = 12000;
            image.PaperWidth = image.PaperHeight = paperHeight;
            image.UnitTwips = 2;
            job.Items = {{"", image}, {path}};
            const Sheet sheet = LayOutDrawing(job, page, letters);
            const PrintedImage& placed = *sheet.Image;
            EXPECT_NEAR(placed.PaperWidth, placed.PaperHeight, 0.01); // whole, and not distorted
            EXPECT_LE(placed.PaperHeight, paperHeight);
            std::string told;
            for (const SheetText& text : sheet.Texts) {
                EXPECT_GT(text.Y, placed.PaperHeight);
                EXPECT_LE(text.Y + letters.LineHeight(text.Points), page.Height + 0.01);
                EXPECT_LE(text.X + letters.Width(text.Text, text.Points), page.Width + 1);
                told += text.Text;
            }
            EXPECT_TRUE(told.starts_with(path));
            // The bar is as long on the paper as its label says in the picture's scale.
            const double bar = sheet.Lines.at(0).X2 - sheet.Lines.at(0).X1;
            const double unit = 2 * placed.PaperWidth / placed.Width;
            EXPECT_NEAR(bar / (unit * 100), std::stod(sheet.Texts.back().Text), 1e-6);
            EXPECT_GT(sheet.Lines.at(1).Y1, placed.PaperHeight);
        }
    }
}

TEST(Printing, WithoutCourierTheBoxShowsTheFaceThatIsPrintedWith)
{
    class OtherFonts : public RecordingPrinter
    {
        std::vector<std::string> Fonts() override { return {"Noto Mono", "Noto Sans"}; }
        std::string TypewriterFont() override { return "Noto Mono"; }
    } other;
    const Folder user;
    Start("MK4 mm");
    Desk.OtherFolder = user / "";
    user.Put("Settings.edt", "Machine=F1\r\n");
    ThePrinter = &other;
    StartProgram(std::nullopt);
    ThePrinter = &Desk.Printer;
    EXPECT_EQ(frmMain.cboFontName.Text, "Noto Mono");
    EXPECT_EQ(frmMain.cboFontName.Index, 0);
    EXPECT_EQ(Shared.FontName, "Noto Mono");
}

TEST(Printing, WithoutEvenAFontTheStartEndsAndTheSettingsStay)
{
    class NoPrinter : public RecordingPrinter
    {
        std::vector<std::string> Fonts() override { return {}; }
    } none;
    const Folder user;
    Start("MK4 mm");
    Desk.OtherFolder = user / "";
    const std::string settings = user.Put("Settings.edt", "Machine=F1\r\n");
    ThePrinter = &none;
    StartProgram(std::nullopt);
    ThePrinter = &Desk.Printer;
    EXPECT_TRUE(Shared.Ended);
    ASSERT_EQ(Desk.Boxes.size(), 1u);
    EXPECT_TRUE(Desk.Boxes[0].Box.Text.starts_with("No printer found."));
    EXPECT_EQ(LogList(), "482 Form_Load");
    EXPECT_EQ(BytesOf(settings), "Machine=F1\r\n");
    EXPECT_NE(BytesOf(user / "Errors.log").find("\"Form_Load\""), std::string::npos);
}
