#include "core/text.h"

#include <algorithm>

namespace {

bool IsContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

bool SameLetter(char a, char b)
{
    return UpperCase(a) == UpperCase(b);
}

/// Returns what stands before the first delimiter and leaves in `text` what follows it. Without the
/// delimiter: "", and text stays.
std::string_view NextToken(std::string_view& text, std::string_view delimiter)
{
    const size_t at = text.find(delimiter);
    if (at == std::string_view::npos) return {};
    const std::string_view token = text.substr(0, at);
    text.remove_prefix(at + delimiter.size());
    return token;
}

} // namespace

size_t CharacterCount(std::string_view text)
{
    return static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuation(c); }));
}

std::string_view FromCharacter(std::string_view text, size_t count)
{
    size_t at = 0;
    for (; at < text.size(); ++at) {
        if (IsContinuation(text[at])) continue;
        if (count == 0) break;
        --count;
    }
    return text.substr(at);
}

std::string_view FirstCharacters(std::string_view text, size_t count)
{
    return text.substr(0, text.size() - FromCharacter(text, count).size());
}

std::string_view LastCharacters(std::string_view text, size_t count)
{
    const size_t length = CharacterCount(text);
    return length <= count ? text : FromCharacter(text, length - count);
}

std::string_view Trimmed(std::string_view text)
{
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

bool IsBlank(std::string_view text)
{
    return text.find_first_not_of(' ') == std::string_view::npos;
}

char UpperCase(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string UpperCase(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper) c = UpperCase(c);
    return upper;
}

bool EqualsNoCase(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && StartsNoCase(a, b);
}

bool StartsNoCase(std::string_view text, std::string_view start)
{
    return text.size() >= start.size() && std::equal(start.begin(), start.end(), text.begin(), SameLetter);
}

size_t FindNoCase(std::string_view text, std::string_view find)
{
    const auto at = std::search(text.begin(), text.end(), find.begin(), find.end(), SameLetter);
    return at == text.end() && !find.empty() ? std::string_view::npos
                                             : static_cast<size_t>(at - text.begin());
}

std::string ReplaceEach(std::string_view text, std::string_view find, std::string_view replacement)
{
    std::string result;
    for (size_t at = text.find(find); at != std::string_view::npos; at = text.find(find)) {
        result.append(text.substr(0, at)).append(replacement);
        text.remove_prefix(at + find.size());
    }
    return result.append(text);
}

std::vector<std::string_view> SplitText(std::string_view text, std::string_view delimiter, int count)
{
    std::vector<std::string_view> parts{NextToken(text, delimiter)};
    for (; count != 1; --count) {
        const std::string_view token = NextToken(text, delimiter);
        if (token.empty()) break;
        parts.push_back(token);
    }
    parts.push_back(text);
    return parts;
}

KeyValue SplitKeyValue(std::string_view line)
{
    std::string plain(line);
    std::erase(plain, '[');
    std::erase(plain, ']');
    const size_t at = plain.find('=');
    const std::string_view all(plain);
    if (at == std::string::npos) return {std::string(Trimmed(all)), ""};
    return {std::string(Trimmed(all.substr(0, at))), std::string(Trimmed(all.substr(at + 1)))};
}

std::string FileNameOf(std::string_view path)
{
    const size_t at = path.find_last_of("/\\");
    return std::string(at == std::string_view::npos ? path : path.substr(at + 1));
}
