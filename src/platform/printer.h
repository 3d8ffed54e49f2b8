// printer.h: the printer as the program asks for it, without a toolkit.
//
// A job is plain data: what was printed, in order, and what a page tells about the program. The front end
// lays it out on sheets (files/listing_pages.h, drawing/drawing_page.h) and paints them. Lengths on paper are
// in 1/100 mm.

#pragma once

#include <optional>
#include <string>
#include <vector>

struct Operation;

enum class Orientation { Portrait, Landscape };

/// The part of a sheet that can be printed on.
struct PageSize {
    double Width, Height;
};

/// A recorded drawing on paper.
struct PrintedImage {
    /// The recording, which lives while the job is being printed; null in a job that was kept.
    const std::vector<Operation>* Operations = nullptr;
    /// Its size in twips, and the colour behind it.
    int Width = 0, Height = 0, Ground = 0;
    /// Its place on the page.
    double X = 0, Y = 0, PaperWidth = 0, PaperHeight = 0;
    /// Twips of the recording for one program unit, which is 1/100 mm when Metric, else 1/1000 inch.
    double UnitTwips = 1;
    bool Metric = true;
    /// How the scale bar tells its length in the language in force.
    std::string LengthText = "%1 mm";
};

/// One thing that is printed: an image, or a text of any number of lines; "" is an empty line.
struct PrintItem {
    std::string Text;
    std::optional<PrintedImage> Image = {};
    /// The text stands in columns: the font shrinks rather than break its lines.
    bool IsTable = false;
};

/// Pages that go to the printer together.
struct PrintJob {
    /// No value where the job goes by what was chosen for the printer, which is portrait at first.
    std::optional<::Orientation> Orientation;
    /// "" for any typewriter's face; the size is in points.
    std::string FontName;
    double FontSize = 10;
    std::vector<PrintItem> Items;

    /// What the pages tell about the program: its file's name and path, the date as year-month-day.
    std::string Name, Path, Date;
    /// How the foot tells the page in the language in force. What paints may stand in a module without it.
    std::string PageText = "Page %1 of %2";
    /// The line of a table that each further page begins with; "" for none.
    std::string Header;
};

/// What became of a job. Given up: the user was asked for a file's name and gave none.
struct PrintOutcome {
    enum class Kind { Sent, GivenUp, Failed } Is = Kind::Sent;
    std::string Reason = {};
};

class Printer
{
public:
    virtual ~Printer() = default;

    /// The names of the fonts, in the printer's order; empty when nothing at all can be printed.
    virtual std::vector<std::string> Fonts() = 0;

    /// The typewriter's face that is printed with where none is named; "" where that isn't known.
    virtual std::string TypewriterFont() { return ""; }

    /// The user chooses printer, paper and copies, which stay in force for later jobs; with a job its preview
    /// comes first. False when that was cancelled.
    virtual bool Choose(const PrintJob* preview) = 0;

    /// The number of copies chosen last, 1 before any choice.
    virtual int Copies() = 0;

    virtual PageSize Page(Orientation orientation) = 0;

    /// Prints the job. `copy` counts from 1; where jobs become files each copy gets a name of its own.
    virtual PrintOutcome Print(const PrintJob& job, int copy) = 0;
};

/// The printer in use. Never null: until a front end sets its own, it is a recording one.
extern Printer* ThePrinter;

/// A4, and the margin where a printer says nothing else.
constexpr PageSize A4{21000, 29700};
constexpr double PaperMargin = 1500;

/// Where jobs become files, the name of a copy, from 1: "out.pdf", "out-2.pdf".
std::string NameOfCopy(const std::string& file, int copy);

/// The bytes of the PDF file that a job makes on A4; "" when it can't be made.
using PrintPdfRoutine = std::string(const PrintJob& job);

/// The routine's name in the module that the console loads.
constexpr const char* PrintPdfName = "BrixleyPrintPdf";
