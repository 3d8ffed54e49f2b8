// long_text.h: a box of several lines whose text may be long and grow while it is shown, as a stream does
// that a machine sends.
//
// It keeps the text that it shows as its record has it, so that nothing is compared or put in anew while
// neither has changed, and what is added behind goes in alone. A line without an end is laid out as a whole
// each time it grows; so long ones are broken for the eye: a break that isn't the text's own has a mark in
// front that no program text contains.

#pragma once

#include <QPlainTextEdit>

#include <string>
#include <string_view>

class LongText : public QPlainTextEdit
{
public:
    using QPlainTextEdit::QPlainTextEdit;

    /// Shows a text whose lines end in CR, LF or both. The user can't undo what came this way.
    void Show(const std::string& text);
    /// The text as it was given; its lines end in CR LF once the user has changed it.
    const std::string& Text();

    /// The way of a position in the document to one in the text, which counts characters, and back.
    int CharactersAt(int position);
    int PositionAt(int characters);

private:
    void Append(std::string_view text);
    int End() const { return document()->characterCount() - 1; }

    std::string Shown;
    /// The document's revision that shows it.
    int Revision = -1;
};
