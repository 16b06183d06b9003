// The module that the command line loads when it is asked for PDF or PNG; it keeps Qt out of
// `kestrum`.

#include "render/module.h"

#include "render/export.h"

#include <QGuiApplication>
#include <QHashFunctions>

#include <cstdio>

namespace {

// Qt's remarks on its surroundings, such as a missing session folder, are none of the user's
// business; what fails is returned.
void KeepQuiet(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::fprintf(stderr, "kestrum: %s\n", qPrintable(text));
    }
}

}  // namespace

extern "C" const char* KestrumRender(const kestrum::RenderJob* job)
{
    static std::string problem;
    static int arguments = 1;
    static char name[] = "kestrum";
    static char* argument_list[] = {name, nullptr};
    if (job->extras != nullptr && job->extras->reproducible) {
        QHashSeed::setDeterministicGlobalSeed();  // the order of fonts in the file follows from it
    }
    if (QGuiApplication::instance() == nullptr) {
        qInstallMessageHandler(KeepQuiet);
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static const QGuiApplication application(arguments, argument_list);
    }
    problem = job->pdf ? kestrum::WritePdf(*job->pages, job->mm_per_unit, *job->path, job->extras)
                       : kestrum::WritePng(job->pages->front(), job->pixels_per_unit, *job->path);
    return problem.c_str();
}
