#include "interpreter/control_words.h"

#include "core/text.h"

#include <algorithm>

namespace {

constexpr std::string_view ControlWords[] = {
    "CMDNOCHECK", "CMDINTERVAL1", "CMDINTERVAL2", "CMDINTERVAL3", "CMDNORADIUS", "CMDRADIUS",
    "CMDNORENUM", "CMDRUN",       "CMDSTEP",      "CMDSTOP",      "CMDWAIT",     "CMDSKIP",
};

} // namespace

std::span<const std::string_view> AllControlWords()
{
    return ControlWords;
}

bool IsUnknownControlCommand(std::string_view comment)
{
    if (!StartsNoCase(comment, "CMD")) return false;
    const std::string_view word = comment.substr(0, comment.find(' '));
    return std::none_of(std::begin(ControlWords), std::end(ControlWords),
                        [&](std::string_view known) { return EqualsNoCase(word, known); });
}

bool IsSkipped(std::string_view comment)
{
    return StartsNoCase(comment, "CMDSKIP");
}
