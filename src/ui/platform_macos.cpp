#include "ui/places.h"
#include "ui/text.h"

#include <QCoreApplication>
#include <QDir>

namespace kestrum {

// A file opened from the Finder arrives as an event of the application, not here.
std::string RawCommandLine(int argc, char** argv)
{
    return argc > 1 ? '"' + std::string(argv[1]) + '"' : std::string{};
}

// Resources of the bundle: Contents/Resources beside Contents/MacOS.
QString ManualFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    return QDir::cleanPath(program.absoluteFilePath(QStringLiteral("../Resources/Help"))) +
           QLatin1Char('/');
}

}  // namespace kestrum
