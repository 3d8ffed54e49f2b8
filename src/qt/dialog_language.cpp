#include "qt/dialog_language.h"

#include "core/shared_state.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileSystemModel>
#include <QLibraryInfo>
#include <QLocale>

namespace {

/// The translations of the toolkit stand in one folder: "qtbase_de.qm", "qtbase_pt_BR.qm".
const QString Start = "qtbase_", Ending = ".qm";

/// Whether a module's name is that of a language: "Español" for "español de España" as well.
bool IsNameOf(const QString& name, const QLocale& locale)
{
    return locale.nativeLanguageName().startsWith(name, Qt::CaseInsensitive) ||
           QLocale::languageToString(locale.language()).compare(name, Qt::CaseInsensitive) == 0;
}

/// The file's name without its folder and ending, "" when the toolkit has no such language.
QString TranslationOf(const QString& name, const QString& folder)
{
    if (name.isEmpty()) return "";
    for (const QString& file : QDir(folder).entryList({Start + "*" + Ending})) {
        const QString translation = file.chopped(Ending.size());
        if (IsNameOf(name, QLocale(translation.mid(Start.size())))) return translation;
    }
    return "";
}

/// Sizes and dates as one writes them in the language of a translation; the user's own country has the first
/// word where its language is that one.
QLocale LocaleOf(const QString& translation)
{
    const QLocale locale(translation.isEmpty() ? "en" : translation.mid(Start.size()));
    return QLocale::system().language() == locale.language() ? QLocale::system() : locale;
}

} // namespace

void DialogLanguage::Follow()
{
    if (Shared.LanguageName == Followed) return;
    Followed = Shared.LanguageName;
    QCoreApplication::removeTranslator(&Translator);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    const QString translation = TranslationOf(QString::fromStdString(*Followed).trimmed(), folder);
    if (!translation.isEmpty() && Translator.load(translation, folder))
        QCoreApplication::installTranslator(&Translator);
    QLocale::setDefault(LocaleOf(translation));
}

QVariant FileDetails::data(const QModelIndex& index, int role) const
{
    constexpr int Size = 1, Date = 3;
    const auto* const files = qobject_cast<const QFileSystemModel*>(sourceModel());
    const QModelIndex source = mapToSource(index);
    if (files != nullptr && role == Qt::DisplayRole) {
        if (index.column() == Size && !files->isDir(source))
            return QLocale().formattedDataSize(files->size(source));
        if (index.column() == Date)
            return QLocale().toString(files->lastModified(source), QLocale::ShortFormat);
    }
    return QIdentityProxyModel::data(index, role);
}
