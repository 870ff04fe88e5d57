#include "manual/man_page.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace kvocaeio::host {

namespace {

/// `words` as `man` prints them: hyphens that can be copied, and no line that is taken for a
/// request.
std::string plain(std::string_view words) {
    std::string result;
    bool first = true;  // in the line
    for (const char c : words) {
        if (first && (c == '.' || c == '\''))
            result += "\\&";
        if (c == '\\')
            result += "\\e";
        else if (c == '-')
            result += "\\-";
        else
            result += c;
        first = c == '\n';
    }
    return result;
}

std::string bold(std::string_view words) {
    return "\\fB" + plain(words) + "\\fR";
}

std::string italic(std::string_view words) {
    return "\\fI" + plain(words) + "\\fR";
}

std::string upperCase(std::string words) {
    std::transform(words.begin(), words.end(), words.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return words;
}

/// What stands after an option: "m|mm" or "TEXT".
std::string valueOf(const OptionDescription& option) {
    return option.choices.empty() ? option.value : joined(option.choices, "|");
}

std::string title(const CommandDescription& program, const std::string& name,
                  const std::string& version) {
    return ".TH " + plain(upperCase(name)) + " 1 \"\" \"" + program.name + " " + version +
           "\" \"User Commands\"\n";
}

/// The line that `apropos` shows: without the full stop, and with a small letter, as is the custom.
std::string nameLine(const std::string& name, std::string text) {
    while (!text.empty() && text.back() == '.')
        text.pop_back();
    if (!text.empty())
        text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
    return ".SH NAME\n" + plain(name) + " \\- " + plain(text) + "\n";
}

std::string synopsis(const std::string& program, const CommandDescription& command) {
    std::string result = ".SH SYNOPSIS\n" + bold(program);
    if (command.name != program)
        result += " " + bold(command.name);
    if (!command.options.empty())
        result += " [" + italic("OPTIONS") + "]";
    if (!command.commands.empty())
        result += " " + italic("COMMAND") + " ...";
    for (const OptionDescription& argument : command.arguments) {
        const std::string words =
            italic(argument.names.front()) + (argument.repeated ? " ..." : "");
        result += argument.required ? " " + words : " [" + words + "]";
    }
    return result + "\n";
}

std::string section(const std::string& heading, const std::vector<OptionDescription>& options,
                    std::string (*style)(std::string_view)) {
    if (options.empty())
        return "";
    std::string result = ".SH " + heading + "\n";
    for (const OptionDescription& option : options) {
        std::vector<std::string> names;
        for (const std::string& name : option.names)
            names.push_back(style(name));
        result += ".TP\n" + joined(names, ", ");
        if (!option.value.empty() && style == bold)
            result += " " + italic(valueOf(option));
        result += "\n" + plain(option.text) + "\n";
        if (!option.byDefault.empty())
            result += "Default: " + bold(option.byDefault) + ".\n";
    }
    return result;
}

std::string notes(const CommandDescription& command) {
    if (command.footer.empty())
        return "";
    std::string result = ".SH NOTES\n";
    for (const char c : plain(command.footer))
        result += c == '\n' ? std::string("\n.br\n") : std::string(1, c);
    return result + "\n";
}

std::string seeAlso(const std::vector<std::string>& names) {
    std::vector<std::string> pages;
    for (const std::string& name : names)
        pages.push_back(bold(name) + "(1)");
    return ".SH SEE ALSO\n" + joined(pages, ",\n") + "\n";
}

}  // namespace

std::string manPage(const CommandDescription& program, const std::string& version) {
    std::string result = title(program, program.name, version) +
                         nameLine(program.name, program.text) + synopsis(program.name, program) +
                         ".SH DESCRIPTION\n" + plain(program.text) + "\n.SH COMMANDS\n";
    std::vector<std::string> pages;
    for (const CommandDescription& command : program.commands) {
        result += ".TP\n" + bold(command.name) + "\n" + plain(command.text) + "\n";
        pages.push_back(program.name + "-" + command.name);
    }
    return result + section("OPTIONS", program.options, bold) + notes(program) + seeAlso(pages);
}

std::string manPage(const CommandDescription& program, const CommandDescription& command,
                    const std::string& version) {
    const std::string name = program.name + "-" + command.name;
    const CommandDescription& footed = command.footer.empty() ? program : command;
    return title(program, name, version) + nameLine(name, command.text) +
           synopsis(program.name, command) + ".SH DESCRIPTION\n" + plain(command.text) + "\n" +
           section("ARGUMENTS", command.arguments, italic) +
           section("OPTIONS", command.options, bold) + notes(footed) + seeAlso({program.name});
}

}  // namespace kvocaeio::host
