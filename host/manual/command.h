/// What the program's commands and options are, as plain data for manual pages and completion.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace kvocaeio::host {

struct OptionDescription {
    std::vector<std::string> names;    ///< "-h", "--help"; of an argument, its name alone
    std::string value;                 ///< what stands after the option, empty for a flag
    std::vector<std::string> choices;  ///< the values that may be given, empty where any may
    std::string text;
    std::string byDefault;
    bool required = false;
    bool repeated = false;
};

struct CommandDescription {
    std::string name;
    std::string text;
    std::string footer;
    std::vector<OptionDescription> arguments;  ///< in the order in which they are given
    std::vector<OptionDescription> options;
    std::vector<CommandDescription> commands;
};

/// What `app` takes, without what it hides from its help.
CommandDescription describe(const CLI::App& app);

/// Adds a hidden option that prints a manual page ("man", "man:COMMAND") or the completion for a
/// shell ("bash", "zsh", "fish"), made from what `app` takes by then.
void addManual(CLI::App& app);

/// The words with `between` them.
std::string joined(const std::vector<std::string>& words, std::string_view between);

}  // namespace kvocaeio::host
