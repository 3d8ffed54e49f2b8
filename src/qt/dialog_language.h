// dialog_language.h: the toolkit's own texts (buttons of dialogs, menus of text boxes) in the language in
// force.

#pragma once

#include <QTranslator>

#include <string>

class DialogLanguage
{
public:
    /// Takes the toolkit's translation for the language in force; without one its texts are English. A module
    /// names its language in that language ("Deutsch") or in English.
    void Follow();

private:
    QTranslator Translator;
    std::string Followed;
};
