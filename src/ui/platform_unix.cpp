#include "ui/places.h"
#include "ui/text.h"

#include <QCoreApplication>
#include <QDir>

namespace kestrum {

std::string RawCommandLine(int argc, char** argv)
{
    return argc > 1 ? '"' + std::string(argv[1]) + '"' : std::string{};
}

// The manuals of an installed program lie in share/doc beside bin; those of a build in its tree.
QString ManualFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString installed = program.absoluteFilePath(QStringLiteral("../share/doc/kestrum-ec3"));
    return QDir::cleanPath(installed) + QLatin1Char('/');
}

}  // namespace kestrum
