#include "core/messages.h"

#include "core/text.h"

TranslatedTables Translated;

std::string_view TextOr(std::string_view defaultText, std::string_view translated)
{
    return IsBlank(translated) ? defaultText : translated;
}

std::string TextOf(const Message& message)
{
    return std::string(TextOr(message.Default, (Translated.*message.Table)[message.Index]));
}

std::string Tr(std::string_view english)
{
    const auto found = Translated.Own.find(english);
    return std::string(found == Translated.Own.end() ? english : TextOr(english, found->second));
}

std::string Tr(std::string_view english, std::initializer_list<std::string_view> values)
{
    std::string text;
    const std::string pattern = Tr(english);
    for (size_t i = 0; i < pattern.size(); ++i) {
        const size_t value =
            i + 1 < pattern.size() ? static_cast<size_t>(pattern[i + 1] - '1') : values.size();
        if (pattern[i] != '%' || value >= values.size()) {
            text += pattern[i];
            continue;
        }
        text += values.begin()[value];
        ++i;
    }
    return text;
}

std::string LimitTip(std::string_view limits)
{
    const size_t to = limits.find("TO");
    if (to == std::string_view::npos) return "";
    return Tr("%1 = Low, Hi = %2", {limits.substr(0, to), limits.substr(to + 2)});
}
