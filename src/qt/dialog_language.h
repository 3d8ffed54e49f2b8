// dialog_language.h: the toolkit's own texts (buttons of dialogs, menus of text boxes, sizes and dates of
// files) in the language in force.

#pragma once

#include <QIdentityProxyModel>
#include <QTranslator>

#include <optional>
#include <string>

class DialogLanguage
{
public:
    /// Takes the toolkit's translation for the language in force; without one its texts are English. A module
    /// names its language in that language ("Deutsch") or in English.
    void Follow();

private:
    QTranslator Translator;
    std::optional<std::string> Followed;
};

/// The files of the toolkit's own file dialog. It would write sizes and dates as the system does.
class FileDetails : public QIdentityProxyModel
{
public:
    using QIdentityProxyModel::QIdentityProxyModel;
    QVariant data(const QModelIndex& index, int role) const override;
};
