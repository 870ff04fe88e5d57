#include "manual/command.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "manual/completion.h"
#include "manual/man_page.h"
#include <kvocaeio/export.h>

namespace kvocaeio::host {

namespace {

/// The words of "TEXT:{m,mm}", as the type of an option with a list of values is written.
std::vector<std::string> choicesIn(const std::string& type) {
    const std::size_t open = type.find('{');
    const std::size_t close = type.find('}');
    if (open == std::string::npos || close == std::string::npos)
        return {};
    return CLI::detail::split(type.substr(open + 1, close - open - 1), ',');
}

OptionDescription describeOption(const CLI::Option& option) {
    OptionDescription result;
    if (option.get_positional())
        result.names = {option.get_name(true)};
    for (const std::string& name : option.get_snames())
        result.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        result.names.push_back("--" + name);
    const std::string type = option.get_type_name();
    result.choices = choicesIn(type);
    if (option.get_items_expected_max() > 0)
        result.value = type.substr(0, type.find(':'));
    result.text = option.get_description();
    result.byDefault = option.get_default_str();
    result.required = option.get_required();
    result.repeated = option.get_items_expected_max() > 1;
    return result;
}

std::string versionText() {
    return std::to_string(KVOCAEIO_VERSION_MAJOR) + "." + std::to_string(KVOCAEIO_VERSION_MINOR) +
           "." + std::to_string(KVOCAEIO_VERSION_PATCH);
}

std::string page(const CLI::App& app, const std::string& name) {
    constexpr std::string_view kOfCommand = "man:";
    const CommandDescription program = describe(app);
    if (name == "man")
        return manPage(program, versionText());
    if (name == "bash")
        return bashCompletion(program);
    if (name == "zsh")
        return zshCompletion(program);
    if (name == "fish")
        return fishCompletion(program);
    for (const CommandDescription& command : program.commands)
        if (name == std::string(kOfCommand) + command.name)
            return manPage(program, command, versionText());
    throw CLI::ValidationError("--manual", "no page is called " + name);
}

}  // namespace

std::string joined(const std::vector<std::string>& words, std::string_view between) {
    std::string result;
    for (const std::string& word : words)
        result.append(&word == &words.front() ? "" : between).append(word);
    return result;
}

CommandDescription describe(const CLI::App& app) {
    CommandDescription result;
    result.name = app.get_name();
    result.text = app.get_description();
    result.footer = app.get_footer();
    for (const CLI::Option* option : app.get_options())
        if (!option->get_group().empty())
            (option->get_positional() ? result.arguments : result.options)
                .push_back(describeOption(*option));
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        if (!command->get_group().empty())
            result.commands.push_back(describe(*command));
    return result;
}

void addManual(CLI::App& app) {
    app.add_option_function<std::string>("--manual",
                                         [&app](const std::string& name) {
                                             throw CLI::CallForVersion(page(app, name),
                                                                       CLI::ExitCodes::Success);
                                         })
        ->trigger_on_parse()
        ->group("");
}

}  // namespace kvocaeio::host
