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
