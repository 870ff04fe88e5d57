/// The grammar of keyword lines.
#include "tidy/abaqus/statement.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/scan.h"
#include "text/tokens.h"
#include "tidy/abaqus/fields.h"

namespace kvocaeio::tidy::abaqus {

namespace {

// Where `end` first stands outside of quotes; the size without one.
std::size_t findUnquoted(std::string_view text, char end) {
    char quote = '\0';
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (quote != '\0')
            quote = text[i] == quote ? '\0' : quote;
        else if (text[i] == '"' || text[i] == '\'')
            quote = text[i];
        else if (text[i] == end)
            return i;
    }
    return text.size();
}

std::string foldedWithoutBlanks(std::string_view text) {
    std::string folded;
    for (const char c : text)
        if (!text::isSpace(c))
            folded += text::toUpper(c);
    return folded;
}

std::string titleOf(std::string_view text) {
    std::string folded;
    for (const char c : trimmed(text))
        if (!text::isSpace(c))
            folded += text::toUpper(c);
        else if (folded.back() != ' ')
            folded += ' ';
    return folded;
}

// As the reader knows it: of all keywords that it reads one has a blank, a single one.
bool isSpelledPlainly(std::string_view text, std::string_view keyword) {
    const bool isShellSection = keyword == "SHELLSECTION";
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    return text.size() == keyword.size() + (isShellSection ? 1 : 0) &&
           (!isShellSection || text[5] == ' ');
}

constexpr text::Delimiters kBlank(" ");

}  // namespace

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text::isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && text::isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string nameOf(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('\'') && text.size() > 1 && text.ends_with('\''))
        return std::string(trimmed(text.substr(1, text.size() - 2)));
    std::string name;
    bool isQuoted = false;
    for (const char c : text)
        if (c == '"')
            isQuoted = !isQuoted;
        else
            name += isQuoted ? c : text::toUpper(c);
    return std::string(trimmed(name));
}

std::string writtenName(std::string_view name) {
    std::string folded;
    text::foldToUpper(trimmed(name), folded);
    const auto isSeparator = [](char c) {
        return c == ',' || c == '=' || c == '"' || c == '\'' || static_cast<unsigned char>(c) < ' ';
    };
    std::ranges::replace_if(folded, isSeparator, '_');
    if (folded.starts_with('*'))
        folded[0] = '_';
    int number = 0;
    if (readInteger(folded, number))
        folded.insert(0, 1, '_');  // where elements may be named it would be one
    folded.resize(std::min(folded.size(), kMostName));
    return std::string(trimmed(folded));
}

void Statement::parse(std::string_view line) {
    parameters.clear();
    isKeywordPlain = line.find_first_of("\t\"'") == std::string_view::npos;
    line = line.substr(1);
    std::size_t end = findUnquoted(line, ',');
    keyword = foldedWithoutBlanks(line.substr(0, end));
    title = titleOf(line.substr(0, end));
    isKeywordPlain = isKeywordPlain && isSpelledPlainly(line.substr(0, end), keyword);
    while (end < line.size()) {
        line.remove_prefix(end + 1);
        end = findUnquoted(line, ',');
        const std::string_view field = line.substr(0, end);
        const std::size_t sign = findUnquoted(field, '=');
        const std::string_view value = field.substr(std::min(sign + 1, field.size()));
        const std::string_view text = trimmed(value);
        const bool isNamePlain = sign == 0 || sign == field.size() || field[sign - 1] != ' ';
        parameters.push_back({foldedWithoutBlanks(field.substr(0, sign)), std::string(text),
                              isNamePlain,
                              value.size() == text.size() && text.size() <= kMostName});
    }
}

// Whether a word in a value before the parameter of that name, or without one, is taken for it.
bool Statement::isMistaken(std::string_view name) const {
    for (const Parameter& parameter : parameters) {
        if (parameter.name == name)
            return false;
        std::string folded;
        text::foldToUpper(parameter.value, folded);
        text::Tokens words(folded);
        for (std::string_view word; words.next(kBlank, word);)
            if (word == name)
                return true;
    }
    return false;
}

bool Statement::isPlain(std::string_view kept) const {
    const bool hasType = keyword == "ELEMENT" || keyword == "SURFACE";
    const bool hasElset = keyword != "SURFACE";
    return isKeywordPlain && !(hasType && isMistaken("TYPE")) &&
           !(hasElset && isMistaken("ELSET")) &&
           std::ranges::all_of(parameters, [&](const Parameter& parameter) {
               return parameter.isNamePlain && (parameter.name != kept || parameter.isValuePlain);
           });
}

bool Statement::isGenerated() const {
    return std::ranges::any_of(parameters, [](const Parameter& parameter) {
        return parameter.name.starts_with("GEN") &&
               std::string_view("GENERATE").starts_with(parameter.name);
    });
}

const Parameter* Statement::find(std::string_view name) const {
    const auto found = std::ranges::find(parameters, name, &Parameter::name);
    return found == parameters.end() ? nullptr : &*found;
}

std::string_view Statement::value(std::string_view name) const {
    const Parameter* const parameter = find(name);
    return parameter == nullptr ? std::string_view() : parameter->value;
}

}  // namespace kvocaeio::tidy::abaqus
