#include "app/platform.h"
#include "cli/command_line.h"
#include "cli/usage.h"

#include <algorithm>
#include <csignal>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace kestrum::cli;

int Run(int argc, char** argv)
{
    std::vector<std::string> words = kestrum::Arguments(argc, argv);
    CommandLine line;
    CLI::App app{"Kestrum EC3: designs one steel member to EN 1993-1-1."};
    app.name("kestrum");
    app.failure_message(UsageFailure);
    app.footer("Exit codes: 0 all ratios within their limits, 1 some ratio above, 2 bad input,\n"
               "not checked, loads dropped or nothing acts, 3 calculation error or unstable.\n"
               "`kestrum help COMMAND` lists the options of a command; the options above "
               "go with each.\n"
               "`kestrum fields` explains the fields with units, values and limits. Compression, "
               "sagging and\n"
               "downward are positive (--sign of new, set, batch). Units: m, kN, kN/m, kNm; "
               "sections mm;\n"
               "strengths MPa. `kestrum dump --inputs FILE` prints the fields of a project.");
    app.require_subcommand(1);
    app.fallthrough();

    app.add_option("--data", line.options.data,
                   "folder with the profile tables and the material list");
    app.set_version_flag(
        "-V,--version", [&line] { return VersionText(line.options); },
        "prints the version, and with --data which files there are not the delivered ones");
    app.add_option("--setup", line.options.setup, "stored setup in place of the delivered one");
    AddColor(app, line.options);
    app.add_flag("-q,--quiet", line.options.quiet,
                 "no hints, no summary; check answers by its exit code alone");
    AddCommands(app, line, words);

    std::reverse(words.begin(), words.end());  // as CLI11 wants them
    if (!words.empty()) {
        words.pop_back();  // the program
    }
    try {
        app.parse(words);
    } catch (const CLI::ParseError& error) {
        const bool asked = app.exit(error) == 0;  // for help or version, which it prints
        std::cout.flush();
        RequirePrinted();
        return asked ? kAllWithin : kBadInput;
    }
    return line.exit;
}

}  // namespace

int main(int argc, char** argv)
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);  // a file that must not grow is a failed write, told as such
#endif
    try {
        return Run(argc, argv);
    } catch (const std::exception& failure) {
        Complain(failure.what());
        return kBadInput;
    }
}
