#include "platform/recording_printer.h"

namespace {

RecordingPrinter FirstPrinter;

} // namespace

Printer* ThePrinter = &FirstPrinter;

std::string NameOfCopy(const std::string& file, int copy)
{
    if (copy == 1) return file;
    const size_t name = file.find_last_of('/') + 1, dot = file.rfind('.'); // npos + 1 is 0
    const size_t end = dot == std::string::npos || dot <= name ? file.size() : dot;
    return file.substr(0, end) + "-" + std::to_string(copy) + file.substr(end);
}

bool RecordingPrinter::Choose(const PrintJob*)
{
    int answer = 1;
    if (!Answers.empty()) {
        answer = Answers.front();
        Answers.pop_front();
    }
    if (OnDialog) OnDialog(answer);
    if (answer > 0) Chosen = answer;
    return answer > 0;
}

PageSize RecordingPrinter::Page(Orientation orientation)
{
    constexpr double Short = 19000, Long = 27700;
    return orientation == Orientation::Portrait ? PageSize{Short, Long} : PageSize{Long, Short};
}

PrintOutcome RecordingPrinter::Print(const PrintJob& job, int)
{
    if (!Fault.empty()) return {PrintOutcome::Kind::Failed, Fault};
    PrintJob& kept = Jobs.emplace_back(job);
    for (PrintItem& item : kept.Items) {
        if (item.Image) item.Image->Operations = nullptr;
    }
    return {};
}
