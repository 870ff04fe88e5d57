#include "manual/completion.h"

#include <string_view>

namespace kvocaeio::host {

namespace {

/// `words` with `escape` before each of the characters `special`.
std::string escaped(std::string_view words, std::string_view special, std::string_view escape) {
    std::string result;
    for (const char c : words) {
        if (special.find(c) != std::string_view::npos)
            result += escape;
        result += c;
    }
    return result;
}

/// `words` as one word of a POSIX shell.
std::string shellWord(std::string_view words) {
    std::string result = "'";
    for (const char c : words)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

std::vector<std::string> optionNames(const CommandDescription& command) {
    std::vector<std::string> result;
    for (const OptionDescription& option : command.options)
        result.insert(result.end(), option.names.begin(), option.names.end());
    return result;
}

std::vector<std::string> commandNames(const CommandDescription& program) {
    std::vector<std::string> result;
    for (const CommandDescription& command : program.commands)
        result.push_back(command.name);
    return result;
}

std::string bashReply(const std::vector<std::string>& words) {
    return "mapfile -t COMPREPLY < <(compgen -W '" + joined(words, " ") + "' -- \"$word\")";
}

std::string bashCase(const CommandDescription& command) {
    std::string result = "        " + command.name + ")\n            case $previous in\n";
    for (const OptionDescription& option : command.options)
        if (!option.choices.empty())
            result += "                " + joined(option.names, " | ") + ") " +
                      bashReply(option.choices) + " ;;\n";
    return result + "                *) [[ $word != -* ]] || " + bashReply(optionNames(command)) +
           " ;;\n            esac\n            ;;\n";
}

/// One option for zsh's _arguments, as '(-h --help)'{-h,--help}'[text]:value:action'.
std::string zshOption(const OptionDescription& option) {
    std::string tail = "[" + escaped(option.text, "[]\\", "\\") + "]";
    if (!option.value.empty())
        tail += ":" + option.value + ":" +
                (option.choices.empty() ? "_files" : "(" + joined(option.choices, " ") + ")");
    if (option.names.size() == 1)
        return shellWord(option.names.front() + tail);
    return shellWord("(" + joined(option.names, " ") + ")") + "{" + joined(option.names, ",") +
           "}" + shellWord(tail);
}

std::string zshCase(const CommandDescription& command) {
    std::string result = "        " + command.name + ")\n            _arguments";
    for (const OptionDescription& option : command.options)
        result += " \\\n                " + zshOption(option);
    for (const OptionDescription& argument : command.arguments)
        result += " \\\n                " +
                  shellWord((argument.repeated ? "*:" : ":") + argument.names.front() + ":_files");
    return result + "\n            ;;\n";
}

std::string fishWord(std::string_view words) {
    return "'" + escaped(words, "'\\", "\\") + "'";
}

std::string fishOption(const OptionDescription& option) {
    std::string result;
    for (const std::string& name : option.names)
        result += name.rfind("--", 0) == 0 ? " -l " + name.substr(2) : " -s " + name.substr(1);
    if (!option.choices.empty())
        result += " -x -a " + fishWord(joined(option.choices, " "));
    else if (!option.value.empty())
        result += " -r";
    return result + " -d " + fishWord(option.text) + "\n";
}

}  // namespace

std::string bashCompletion(const CommandDescription& program) {
    std::vector<std::string> first = commandNames(program);
    const std::vector<std::string> options = optionNames(program);
    first.insert(first.end(), options.begin(), options.end());
    std::string result = "_" + program.name +
                         "() {\n"
                         "    local word=${COMP_WORDS[COMP_CWORD]}\n"
                         "    local previous=${COMP_WORDS[COMP_CWORD - 1]}\n"
                         "    COMPREPLY=()\n"
                         "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
                         "        " +
                         bashReply(first) +
                         "\n        return\n"
                         "    fi\n"
                         "    case ${COMP_WORDS[1]} in\n";
    for (const CommandDescription& command : program.commands)
        result += bashCase(command);
    // Where nothing fits, names of files are tried.
    return result + "    esac\n}\ncomplete -o default -F _" + program.name + " " + program.name +
           "\n";
}

std::string zshCompletion(const CommandDescription& program) {
    std::string result = "#compdef " + program.name +
                         "\n\nlocal context state line\n"
                         "_arguments -C";
    for (const OptionDescription& option : program.options)
        result += " \\\n    " + zshOption(option);
    std::string commands;
    for (const CommandDescription& command : program.commands)
        commands += (commands.empty() ? "" : " ") + command.name +
                    "\\:" + shellWord(escaped(command.text, ":", "\\"));
    result += " \\\n    " + shellWord("1:command:((" + commands + "))") +
              " \\\n    '*::argument:->argument'\n"
              "if [[ $state == argument ]]; then\n"
              "    case $line[1] in\n";
    for (const CommandDescription& command : program.commands)
        result += zshCase(command);
    return result + "    esac\nfi\n";
}

std::string fishCompletion(const CommandDescription& program) {
    const std::string begin = "complete -c " + program.name;
    std::string result;
    for (const OptionDescription& option : program.options)
        result += begin + " -n __fish_use_subcommand" + fishOption(option);
    for (const CommandDescription& command : program.commands) {
        result += begin + " -n __fish_use_subcommand -f -a " + command.name + " -d " +
                  fishWord(command.text) + "\n";
        for (const OptionDescription& option : command.options)
            result += begin + " -n " + fishWord("__fish_seen_subcommand_from " + command.name) +
                      fishOption(option);
    }
    return result;
}

}  // namespace kvocaeio::host
