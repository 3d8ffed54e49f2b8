#include "qt/qt_platform.h"

#include "core/app_data.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "qt/dialog_language.h"
#include "qt/theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QDateTime>
#include <QFileDialog>
#include <QMessageBox>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <iterator>

namespace {

struct ButtonSet {
    Buttons Set;
    QMessageBox::StandardButtons Shown;
    QMessageBox::StandardButton Default, Escape;
};
constexpr ButtonSet ButtonSets[] = {
    {Buttons::OK, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok},
    {Buttons::YesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No},
    {Buttons::YesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
     QMessageBox::Cancel},
};

QMessageBox::Icon IconOf(Icon icon, Buttons buttons)
{
    switch (icon) {
    case Icon::Information: return QMessageBox::Information;
    case Icon::Exclamation: return QMessageBox::Warning;
    case Icon::Critical: return QMessageBox::Critical;
    case Icon::Question: return QMessageBox::Question;
    case Icon::None: break;
    }
    return buttons == Buttons::OK ? QMessageBox::NoIcon : QMessageBox::Question;
}

Answer AnswerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Cancel: return Answer::Cancel;
    default: return Answer::OK;
    }
}

QString Translation(const QString& english)
{
    return QString::fromStdString(Tr(english.toStdString()));
}

/// The answers, marked letters included, in the language in force also where the toolkit doesn't know it.
struct ButtonCaption {
    QMessageBox::StandardButton Button;
    const char* Caption;
};
constexpr ButtonCaption ButtonCaptions[] = {{QMessageBox::Yes, "&Yes"},
                                            {QMessageBox::No, "&No"},
                                            {QMessageBox::Cancel, "Cancel"},
                                            {QMessageBox::Ok, "OK"}};

/// "text|patterns|text|patterns|" as the dialogs of the desktop take it: "text (patterns);;...".
QString FiltersOf(const std::string& filter)
{
    const QStringList parts = QString::fromStdString(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString text = parts[i].left(parts[i].indexOf('(')).trimmed();
        filters << Translation(text) + " (" + QString(parts[i + 1]).replace(';', ' ') + ")";
    }
    return filters.join(";;");
}

/// The ending of the first pattern, "cnc" of "*.cnc;*.txt": a name that is typed without one gets it.
QString EndingOf(const std::string& filter)
{
    const QString pattern = QString::fromStdString(filter).section('|', 1, 1).section(';', 0, 0);
    const QString ending = pattern.section('.', 1);
    return ending.contains('*') ? QString() : ending;
}

/// A kind of file that is chosen in a save dialog gives the name its ending.
void FollowFilter(QFileDialog& dialog, const QString& filter)
{
    const QString ending = filter.section("*.", 1, 1).section(' ', 0, 0).remove(')');
    const QString before = dialog.defaultSuffix(), name = dialog.selectedFiles().value(0);
    if (ending.isEmpty() || ending.contains('*')) return;
    dialog.setDefaultSuffix(ending);
    if (name.endsWith("." + before)) dialog.selectFile(name.chopped(before.size()) + ending);
}

} // namespace

bool QtPlatform::MayAsk() const
{
    if (!Shared.Ended && BeforeBox) BeforeBox();
    return !Shared.Ended;
}

Answer QtPlatform::Show(const MessageBox& box)
{
    const auto& buttons = *std::find_if(std::begin(ButtonSets), std::end(ButtonSets),
                                        [&](const ButtonSet& row) { return row.Set == box.Buttons; });
    const Answer safe = AnswerOf(buttons.Escape);
    if (!MayAsk()) return safe;
    QMessageBox shown(QApplication::activeWindow());
    shown.setObjectName("messageBox");
    shown.setWindowTitle(box.Title.empty() ? ProductName : QString::fromStdString(box.Title));
    shown.setText(QString::fromStdString(box.Text));
    shown.setTextFormat(Qt::PlainText);
    shown.setIcon(IconOf(box.Icon, box.Buttons));
    shown.setStandardButtons(buttons.Shown);
    shown.setDefaultButton(box.SafeIsNo ? QMessageBox::No : buttons.Default);
    shown.setEscapeButton(buttons.Escape);
    for (const ButtonCaption& row : ButtonCaptions) {
        if (QAbstractButton* const button = shown.button(row.Button))
            button->setText(Translation(row.Caption));
    }
    const int button = shown.exec();
    return Shared.Ended ? safe : AnswerOf(button); // the system has ended the program, not the user the box
}

std::optional<std::string> QtPlatform::AskForFile(const FileDialog& dialog)
{
    if (!MayAsk()) return std::nullopt;
    const bool open = dialog.For == FileDialog::Purpose::Open;
    QFileDialog shown(QApplication::activeWindow());
    shown.setObjectName("fileDialog");
    shown.setProxyModel(new FileDetails(&shown));
    shown.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    shown.setFileMode(open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    shown.setOption(QFileDialog::DontConfirmOverwrite, !dialog.AsksBeforeReplacing);
    shown.setNameFilters(FiltersOf(dialog.Filter).split(";;"));
    if (!open) {
        shown.setDefaultSuffix(EndingOf(dialog.Filter));
        QObject::connect(&shown, &QFileDialog::filterSelected, &shown,
                         [&shown](const QString& filter) { FollowFilter(shown, filter); });
    }
    shown.setDirectory(dialog.Folder.empty()
                           ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                           : QString::fromStdString(dialog.Folder));
    if (!dialog.Name.empty()) shown.selectFile(QString::fromStdString(dialog.Name));
    if (shown.exec() != QDialog::Accepted) return std::nullopt;
    const QStringList chosen = shown.selectedFiles();
    return chosen.isEmpty() ? std::string() : chosen.first().toStdString();
}

bool QtPlatform::Launch(const std::vector<std::string>& programs)
{
    for (const std::string& program : programs) {
        const QString path = QStandardPaths::findExecutable(QString::fromStdString(program));
        if (!path.isEmpty() && QProcess::startDetached(path, {})) return true;
    }
    return false;
}

std::optional<int> QtPlatform::AskForColor(int present)
{
    if (!MayAsk()) return std::nullopt;
    const QColor chosen = QColorDialog::getColor(Theme::FromBgr(present), QApplication::activeWindow());
    return chosen.isValid() ? std::optional(Theme::ToBgr(chosen)) : std::nullopt;
}

void QtPlatform::Beep()
{
    QApplication::beep();
}

DateTime QtPlatform::Now()
{
    const QDateTime now = QDateTime::currentDateTime();
    return {now.date().year(), now.date().month(),  now.date().day(),
            now.time().hour(), now.time().minute(), now.time().second()};
}

double QtPlatform::Seconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::string QtPlatform::LocalDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString();
}

std::string QtPlatform::ProgramFolder()
{
    return QApplication::applicationDirPath().toStdString();
}
