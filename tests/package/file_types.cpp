// The file type as desktops on Qt see it, from a folder of types apart from the system's, as /usr/local/share
// is. Usage: file_types TYPES.xml EXAMPLES-FOLDER

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QTemporaryDir>

#include <cstdio>

namespace {

struct Case {
    const char* What;
    const char* Name;
    const char* Example; // whose text the file holds; null for one that is no program
    bool Small, Program;
};
constexpr Case Cases[] = {
    {"the ending alone", "empty.cnc", nullptr, false, true},
    {"the ending in capitals", "EMPTY.C5N", nullptr, false, true},
    {"a text of the MK2", "mk2.txt", "mk2-ball-end.cnc", false, true},
    {"a text of the MK4", "mk4.txt", "mk4-chess-pawn.cnc", false, true},
    {"a text of the F1 in small letters", "f1.txt", "f1-frame-radius.cnc", true, true},
    {"no ending", "mk4", "mk4-chess-pawn.cnc", false, true},
    {"a text that is no program", "letter.txt", nullptr, false, false},
};

QByteArray TextOf(const Case& given, const QString& examples)
{
    if (given.Example == nullptr) return "A letter about N00 G.\n";
    QFile file(examples + "/" + given.Example);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray text = file.readAll();
    return given.Small ? text.toLower() : text;
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkpath("mime/packages");
    if (argc != 3 || !QFile::copy(argv[1], folder.filePath("mime/packages/types.xml"))) return 2;
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    const QCoreApplication application(argc, argv);

    int faults = 0;
    const QMimeDatabase types;
    for (const Case& given : Cases) {
        const QString path = folder.filePath(given.Name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(TextOf(given, argv[2])) < 1) return 2;
        file.close();
        const QString type = types.mimeTypeForFile(path).name();
        if (type == (given.Program ? "text/x-emco-cnc" : "text/plain")) continue;
        std::printf("%s: %s is %s\n", given.What, given.Name, qPrintable(type));
        ++faults;
    }
    return faults == 0 ? 0 : 1;
}
