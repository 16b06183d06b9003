#include "cli/usage.h"

#include "app/field_hint.h"
#include "core/utf8_text.h"

#include <algorithm>

namespace kestrum::cli {

namespace {

template <class Value>
const Value& Chosen(const std::vector<std::pair<std::string, Value>>& words,
                    const std::string& option, const std::string& typed, const std::string& names)
{
    const auto at = std::find_if(words.begin(), words.end(),
                                 [&](const auto& word) { return word.first == typed; });
    if (at == words.end()) {
        throw CLI::ValidationError(option, typed + " is none of " + names);
    }
    return at->second;
}

template <class Value> std::string NamesOf(const std::vector<std::pair<std::string, Value>>& words)
{
    std::string names;
    for (const auto& word : words) {
        names += (names.empty() ? "" : "|") + word.first;
    }
    return names;
}

std::vector<std::string_view> CommandsOf(const CLI::App& app)
{
    std::vector<std::string_view> names;
    for (const CLI::App* command : app.get_subcommands({})) {
        names.emplace_back(command->get_name());
    }
    return names;
}

std::vector<std::string> OptionsOf(const CLI::App& app)
{
    std::vector<std::string> names;
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return names;
}

std::string Meant(std::string_view near)
{
    return near.empty() ? std::string{} : "; did you mean " + std::string(near) + "?";
}

std::string NoSuchCommand(const CLI::App& app, const std::string& word)
{
    return word + ": no such command" + Meant(Nearest(word, CommandsOf(app)));
}

std::string NoSuchOption(const CLI::App& app, const CLI::App* command, const std::string& word)
{
    const std::string bare = word.substr(0, word.find('='));
    std::vector<std::string> options = OptionsOf(app);
    if (command != nullptr) {
        const std::vector<std::string> own = OptionsOf(*command);
        options.insert(options.end(), own.begin(), own.end());
    }
    const std::string_view near = bare.size() > 2 ? Nearest(bare, options) : std::string_view{};
    return bare + ": no such option" + Meant(near);
}

bool LooksLikeOption(const std::string& word)
{
    return word.size() > 1 && word[0] == '-';
}

// What was typed and nothing takes.
std::string Leftover(const CLI::App& app, const CLI::App* command)
{
    const std::vector<std::string> rest = app.remaining(true);
    const auto option = std::find_if(rest.begin(), rest.end(), LooksLikeOption);
    if (option != rest.end()) {
        return NoSuchOption(app, command, *option);
    }
    if (rest.empty()) {
        return {};
    }
    return command == nullptr ? NoSuchCommand(app, rest.front())
                              : rest.front() + ": one argument too many";
}

}  // namespace

void AddFormat(CLI::App& command, Options& options, const Formats& formats)
{
    const std::string names = NamesOf(formats);
    const auto choose = [&options, &formats, names](const std::string& typed) {
        options.format = Chosen(formats, "--format", typed, names);
    };
    command.add_option_function<std::string>("--format", choose, "form of the answer")
        ->type_name(names);
    command.add_flag_callback(
        "--json", [&options] { options.format = Format::json; }, "short for --format json");
}

void AddCsv(CLI::App& command, Options& options)
{
    command
        .add_option("--delimiter", options.delimiter,
                    "what separates the cells of a CSV; a comma without it")
        ->type_name("comma|semicolon|tab")
        ->check(CLI::IsMember({"comma", "semicolon", "tab"}).description(""));
    command
        .add_option("--decimal", options.decimal,
                    "decimal sign of the numbers of a CSV; with a comma semicolons separate "
                    "the cells")
        ->type_name("point|comma")
        ->check(CLI::IsMember({"point", "comma"}).description(""));
}

void AddColor(CLI::App& app, Options& options)
{
    static const std::vector<std::pair<std::string, Color>> kWords{
        {"auto", Color::automatic}, {"always", Color::always}, {"never", Color::never}};
    const std::string names = NamesOf(kWords);
    const auto choose = [&options, names](const std::string& typed) {
        options.color = Chosen(kWords, "--color", typed, names);
    };
    app.add_option_function<std::string>(
           "--color", choose, "colours of the answer; auto: on a terminal, unless NO_COLOR is set")
        ->type_name(names);
}

void AddSign(CLI::App& command, bool& tensionpositive)
{
    static const std::vector<std::pair<std::string, bool>> kWords{{"compression+", false},
                                                                  {"tension+", true}};
    const std::string names = NamesOf(kWords);
    const auto choose = [&tensionpositive, names](const std::string& typed) {
        tensionpositive = Chosen(kWords, "--sign", typed, names);
    };
    command
        .add_option_function<std::string>(
            "--sign", choose,
            "sign of the axial forces nload, ne and ned that are given and answered; compression "
            "is positive without it. Moments that sag and loads that act downward are positive "
            "with either")
        ->type_name(names);
}

CLI::Option* AddOutput(CLI::App& command, std::string& file, const std::string& meaning)
{
    return command.add_option("-o,--output", file, meaning)
        ->type_name("FILE")
        ->check(CLI::Validator(
            [](const std::string& name) {
                return name.empty() ? std::string("the name of the file is empty") : std::string();
            },
            ""));
}

std::string UsageFailure(const CLI::App* app, const CLI::Error& error)
{
    const CLI::App* const root = app->get_parent() == nullptr ? app : app->get_parent();
    const std::vector<CLI::App*> typed = root->get_subcommands();
    const CLI::App* const command = typed.empty() ? nullptr : typed.back();
    const std::string leftover = Leftover(*root, command);
    std::string what = leftover.empty() ? std::string(error.what()) : leftover;
    if (leftover.empty() && command == nullptr && error.get_name() == "RequiredError") {
        what = "a command is missing";
    }
    const std::string of = command == nullptr ? "" : command->get_name();
    return "kestrum: " + (of.empty() ? "" : of + ": ") + Printable(what) + "\nRun `kestrum " +
           (of.empty() ? "" : of + " ") + "--help` for more information.\n";
}

std::string HelpOf(const CLI::App& app, const std::string& command)
{
    if (command.empty()) {
        return app.get_formatter()->make_help(&app, app.get_name(), CLI::AppFormatMode::Normal);
    }
    for (const CLI::App* one : app.get_subcommands({})) {
        if (one->get_name() == command) {
            return one->help(app.get_name());
        }
    }
    throw BadInput(NoSuchCommand(app, command));
}

}  // namespace kestrum::cli
