#include "ui/places.h"
#include "ui/text.h"

#include <QCoreApplication>

#include <windows.h>

namespace kestrum {

// Behind the program's own name, which stands in quotes when it holds blanks.
std::string RawCommandLine(int, char**)
{
    const QString line = QString::fromWCharArray(GetCommandLineW()).trimmed();
    const qsizetype quoted =
        line.startsWith(QLatin1Char('"')) ? line.indexOf(QLatin1Char('"'), 1) : -1;
    const qsizetype end = quoted >= 0 ? quoted + 1 : line.indexOf(QLatin1Char(' '));
    return end < 0 ? std::string{} : FromQt(line.mid(end).trimmed());
}

QString ManualFolder()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("\\Help\\");
}

}  // namespace kestrum
