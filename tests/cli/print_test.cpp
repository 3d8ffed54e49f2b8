// Printing from the console: the PDF files as their text tells, and the record of a key script.

#include "cli/commands.h"
#include "core/text.h"
#include "support/program.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/wait.h>

namespace {

class Print : public ::testing::Test
{
protected:
    /// Runs the words in a shell in the folder of the files; `cli` stands for the program.
    int Call(const std::string& words) const
    {
        const std::string line =
            "cd '" + (Work / "") + "' && cli='" BRIXLEY_CLI "' && exec >out 2>err && " + words;
        const int status = std::system(line.c_str()); // NOLINT: what a shell does is what is tested
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string Out() const { return BytesOf(Work / "out"); }
    std::string Err() const { return BytesOf(Work / "err"); }

    const Folder Work;
};

#ifdef BRIXLEY_PICTURES

/// The words of a text: what stands between blanks and line ends.
std::string WordsOf(const std::string& text)
{
    std::string words;
    for (const char c : text) {
        if (c == ' ' || c == '\r' || c == '\n' || c == '\f') {
            if (!words.empty() && words.back() != ' ') words += ' ';
        } else {
            words += c;
        }
    }
    return std::string(Trimmed(words));
}

bool HasPdfToText()
{
    return std::system("pdftotext -v >/dev/null 2>&1") == 0; // NOLINT
}

class PrintIn : public Print, public testing::WithParamInterface<const char*>
{
};

TEST_P(PrintIn, ThePaperHoldsTheListingOfEachExample)
{
    if (!HasPdfToText()) GTEST_SKIP() << "pdftotext is missing";
    LoadOptions options;
    options.Language = std::string(LANGUAGES_DIR) + "/" + GetParam() + ".txt";
    options.View = ViewNames;
    for (const auto& example : std::filesystem::directory_iterator(EXAMPLES_DIR)) {
        if (example.path().extension() != ".cnc") continue;
        const std::string file = example.path().string(), name = example.path().filename().string();
        SCOPED_TRACE(name);
        ASSERT_EQ(Call("\"$cli\" print -o x.pdf '" + file +
                       "' --columns gcode,toolpos,properties,time --language '" + options.Language +
                       "' && pdftotext -layout x.pdf -"),
                  0)
            << Err();
        // Each line of the listing, its words and their order; what wraps goes on with the next word.
        const std::string paper = WordsOf(Out());
        std::string listing = ListFile(options, file).Output;
        ASSERT_GT(listing.size(), 100u);
        size_t from = 0;
        for (size_t end = 0; (end = listing.find("\r\n")) != std::string::npos; listing.erase(0, end + 2)) {
            const std::string line = WordsOf(listing.substr(0, end));
            const size_t at = paper.find(line, from);
            ASSERT_NE(at, std::string::npos) << line << "\nis not in\n" << paper.substr(from);
            from = at + line.size();
        }
        EXPECT_NE(paper.find(name, from), std::string::npos) << "the foot";
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, PrintIn,
                         testing::Values("English", "German", "French", "Spanish", "Dutch"));

TEST_F(Print, EachCopyIsAFileAndThePagesAreA4)
{
    Work.Put("a.cnc", WithCrLf("%\n    N` G`   X `    Z `  F`  H \n    00 00  1000  -2000         \n"
                               "    01M30\n   M\n"));
    ASSERT_EQ(Call("\"$cli\" print a.cnc -o a.pdf --copies 3"), 0) << Err();
    for (const char* name : {"a.pdf", "a-2.pdf", "a-3.pdf"})
        EXPECT_TRUE(BytesOf(Work / name).starts_with("%PDF")) << name;
    EXPECT_FALSE(std::filesystem::exists(Work / "a-4.pdf"));
    ASSERT_EQ(Call("\"$cli\" print a.cnc --drawing -o d.pdf --canvas 9000x12000 --copies 2"), 0) << Err();
    EXPECT_TRUE(BytesOf(Work / "d-2.pdf").starts_with("%PDF"));
    EXPECT_EQ(Out(), "");
    EXPECT_NE(BytesOf(Work / "a.pdf").find("/MediaBox [0 0 595.000000 842.000000]"), std::string::npos);
    EXPECT_NE(BytesOf(Work / "d.pdf").find("/MediaBox [0 0 595.000000 842.000000]"), std::string::npos);
    ASSERT_EQ(Call("\"$cli\" print a.cnc --drawing -o d.pdf"), 0) << Err();
    EXPECT_NE(BytesOf(Work / "d.pdf").find("/MediaBox [0 0 842.000000 595.000000]"), std::string::npos);
}

#endif

TEST_F(Print, WhatCannotBePrintedLeavesNoFile)
{
    Work.Put("empty.cnc", WithCrLf("%\n    N` G`   X `    Z `  F`  H \n"));
    Work.Put("bad.cnc", WithCrLf("%\n    N` G`   X `    Z `  F`  H \n    00 01  6000     00  50\n   M\n"));
    const struct {
        const char* Words;
        int Status;
        const char* Why;
    } cases[] = {
        {"empty.cnc -o x.pdf", 2, "no lines"},
        {"empty.cnc -o x.pdf --drawing", 2, "no lines"},
        {"missing.cnc -o x.pdf", 2, "missing.cnc"},
        {"bad.cnc -o x.txt", 2, ".pdf"},
        {"bad.cnc", 2, "-o"},
        {"bad.cnc -o x.pdf --copies 0", 2, "--copies"},
        {"bad.cnc -o x.pdf --drawing --canvas 7", 2, "--canvas"},
        {"bad.cnc -o x.pdf --drawing", 1, "1 messages"},
#ifdef BRIXLEY_PICTURES
        {"bad.cnc -o nowhere/x.pdf", 2, "Printing failed"},
#endif
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Words);
        EXPECT_EQ(Call(std::string("\"$cli\" print ") + row.Words), row.Status);
        const std::string why = Err();
        EXPECT_NE(why.find(row.Why), std::string::npos) << why;
        EXPECT_EQ(std::count(why.begin(), why.end(), '\n'), 1) << why;
        EXPECT_EQ(Out(), "");
        EXPECT_FALSE(std::filesystem::exists(Work / "x.pdf"));
    }
}

TEST_F(Print, KeyScriptsRecordWhatIsPrinted)
{
    const std::string program = WithCrLf("One. Two.\n%\n    N` G`   X `    Z `  F`  H \n    00M30\n   M\n");
    const std::string path = Work.Put("a.cnc", program);
    const auto run = [&](const std::string& arguments) {
        EXPECT_EQ(Call("\"$cli\" keys --json " + arguments), 0) << Err();
        return nlohmann::json::parse(Out());
    };
    const auto jobs = [&](const std::string& keys) {
        return run("a.cnc --keys='{TICK}" + keys + "'").at("printed").size();
    };
    EXPECT_EQ(jobs("{CTRL-P}"), 1u);
    EXPECT_EQ(jobs("{COPIES 2}{MENU mnuPrint}"), 2u);
    EXPECT_EQ(jobs("{COPIES 0}{CTRL-P}"), 0u);
    EXPECT_EQ(jobs("{COPIES 3}{CLICK cmdTopButtons(3)}"), 1u) << "the button asks nobody";
    EXPECT_EQ(jobs("{COPIES 3}{CTRL-P}{CLICK cmdTopButtons(3)}"), 6u) << "the copies stay chosen";
    EXPECT_EQ(jobs("{CLICK cmdTopButtons(4)}{PICK tabSettings 5}{COPIES 2}{CLICK cmdPrinterDialog}"
                   "{COPIES 0}{CTRL-P}{CLICK cmdTopButtons(3)}"),
              2u);

    // A program that was not opened by the dialog has no name there.
    auto state = run("a.cnc --keys='{TICK}{CTRL-P}'");
    const auto item = [&](size_t number) { return state["printed"][0]["items"][number]; };
    const auto textItem = [](const std::string& text) { return nlohmann::json::array({"text", text}); };
    EXPECT_EQ(state["printed"][0]["items"].size(), 4u);
    for (const size_t empty : {0, 1, 2}) EXPECT_EQ(item(empty), textItem(""));
    ASSERT_EQ(Call("\"$cli\" listing a.cnc"), 0);
    EXPECT_TRUE(Out().starts_with("One.\r\nTwo.\r\n\r\n"));
    EXPECT_EQ(item(3), textItem(Out()));
    EXPECT_EQ(state["printed"][0]["orientation"], "portrait");
    EXPECT_EQ(state["printed"][0]["font"], "Courier New");
    EXPECT_EQ(state["printed"][0]["size"], 10);
    EXPECT_EQ(state["dialogs"][0]["kind"], "printer");

    state = run("--keys='{FILE a.cnc}{CTRL-O}{TICK}{CLICK cmdTopButtons(4)}{PICK tabSettings 5}"
                "{PICK cboFontName 2}{PICK cboFontSize 4}{CTRL-P}'");
    EXPECT_EQ(item(0), textItem("a.cnc"));
    EXPECT_EQ(item(1), textItem(path));
    EXPECT_EQ(state["printed"][0]["font"], "DejaVu Sans");
    EXPECT_EQ(state["printed"][0]["size"], 14);

    state = run("a.cnc --keys='{TICK}{CTRL-D}{CLICK cmdPrint}'");
    EXPECT_EQ(state["printed"][0]["orientation"], "landscape");
    EXPECT_EQ(item(0), nlohmann::json::array({"image", 0, 0, 21167, 15875, "#ffffff"}));
    EXPECT_EQ(item(1), textItem(path));
    EXPECT_EQ(state["focus"], "cmdPrint");

    EXPECT_EQ(run("--keys='{CLICK cmdTopButtons(3)}'")["messages"][0]["text"], "No Lines of code present");
}

} // namespace
