#include "editor/math_string.h"

#include "core/failure.h"
#include "core/numbers.h"
#include "core/text.h"
#include "core/vector.h"

#include <array>
#include <cmath>
#include <vector>

namespace {

constexpr std::string_view Name = "MathString";
constexpr size_t MostTerms = 10;

struct Term {
    std::string Text;
    /// What joins it to the next one, 0 behind the last.
    char Operator;
};

/// An operator as the very last character of the text as typed is none.
std::vector<Term> TermsOf(std::string_view text)
{
    const size_t length = text.size();
    std::vector<Term> terms;
    for (;;) {
        const size_t at = text.find_first_of("+-*/");
        if (at == std::string_view::npos || at + 1 >= length) break;
        terms.push_back({std::string(text.substr(0, at)), text[at]});
        text.remove_prefix(at + 1);
    }
    terms.push_back({std::string(text), 0});
    return terms;
}

double Apply(double result, char operation, double term)
{
    switch (operation) {
    case '+': result += term; break;
    case '-': result -= term; break;
    case '*': result *= term; break;
    default: result = Divide(result, term);
    }
    if (std::isinf(result)) throw RunTimeFailure{Failures::Overflow};
    return result;
}

/// The terms of a sum; one behind the tenth is no element.
class Terms
{
public:
    float& At(size_t k)
    {
        if (k >= MostTerms) throw RunTimeFailure{Failures::SubscriptOutOfRange};
        return Values[k];
    }

private:
    std::array<float, MostTerms> Values{};
};

} // namespace

std::string MathString(std::string_view text)
{
    const std::vector<Term> read = TermsOf(text);
    Terms terms;
    bool hasValue = true;
    for (size_t k = 0; k < read.size(); ++k) {
        float value = 0;
        hasValue &= Attempt(Name, [&] {
            value = EqualsNoCase(read[k].Text, "P") ? static_cast<float>(Pi) : ToSingle(Val(read[k].Text));
        });
        Attempt(Name, [&] { terms.At(k) = value; });
    }
    double result = terms.At(0);
    for (size_t k = 1; k < read.size(); ++k) {
        const bool applied =
            Attempt(Name, [&] { result = Apply(result, read[k - 1].Operator, terms.At(k)); });
        if (k < MostTerms) hasValue &= applied;
    }
    return hasValue ? FormatWhole(result, 2) : "?";
}

bool HasTooManyTerms(std::string_view text)
{
    return TermsOf(text).size() > MostTerms;
}

bool IsNumeric(std::string_view text)
{
    text = Trimmed(text);
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    text = Trimmed(text);
    bool digits = false, point = false;
    for (const char c : text) {
        if (c == '.' && !point) {
            point = true;
        } else if (c >= '0' && c <= '9') {
            digits = true;
        } else {
            return false;
        }
    }
    return digits;
}
