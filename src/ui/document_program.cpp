#include "ui/document_program.h"

#include <QDirIterator>
#include <QFile>
#include <QMimeDatabase>
#include <QStandardPaths>

#include <algorithm>

namespace kestrum {

namespace {

bool AsksThePlatform()
{
#ifdef Q_OS_LINUX
    return QFile::exists(QStringLiteral("/.flatpak-info")) || qEnvironmentVariableIsSet("SNAP");
#else
    return true;
#endif
}

// Whether a desktop entry offers to open the type: "MimeType=text/csv;application/pdf;".
bool Opens(const QString& entry, const QByteArray& type)
{
    constexpr qint64 kLargestEntry = 1 << 20;
    QFile file(entry);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    for (QByteArray line : file.read(kLargestEntry).split('\n')) {
        line = line.trimmed();
        if (line.startsWith("MimeType=")) {
            return line.mid(line.indexOf('=') + 1).split(';').contains(type);
        }
    }
    return false;
}

bool AnyEntryOpens(const QString& folder, const QByteArray& type)
{
    QDirIterator entries(folder, {QStringLiteral("*.desktop")}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        if (Opens(entries.next(), type)) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool HasProgramFor(const QString& path)
{
    if (AsksThePlatform()) {
        return true;
    }
    const QByteArray type = QMimeDatabase().mimeTypeForFile(path).name().toLatin1();
    const QStringList folders =
        QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    return std::any_of(folders.begin(), folders.end(),
                       [&](const QString& folder) { return AnyEntryOpens(folder, type); });
}

}  // namespace kestrum
