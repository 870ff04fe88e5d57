/// The keyword lines of an Abaqus deck: a keyword and its parameters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvocaeio::tidy::abaqus {

/// The characters of a name that the reader hands out.
inline constexpr std::size_t kMostName = 79;

/// `text` without white space at both ends.
std::string_view trimmed(std::string_view text);

/// A name as it is looked up: unquoted in upper case, quoted as it stands between its quotes.
std::string nameOf(std::string_view text);

/// A name in the characters that the reader takes, cut to as many as it hands out.
std::string writtenName(std::string_view name);

/// A parameter of a keyword line.
struct Parameter {
    std::string name;   ///< in upper case, without blanks
    std::string value;  ///< as it stands, trimmed; with its quotes
};

/// A keyword line with the lines that continue it.
struct Statement {
    std::string keyword;  ///< in upper case, without blanks and the asterisk
    std::vector<Parameter> parameters;
    /// Whether the reader takes keyword and values from the line as they are meant: no quotes, no
    /// white space where it would become part of a value, no name longer than the reader's.
    bool isPlain = true;

    /// Splits a keyword line.
    void parse(std::string_view line);

    const Parameter* find(std::string_view name) const;
    bool has(std::string_view name) const { return find(name) != nullptr; }
    /// The value as it stands; empty without the parameter.
    std::string_view value(std::string_view name) const;
    /// The value as a name that is looked up.
    std::string name(std::string_view name) const { return nameOf(value(name)); }
};

}  // namespace kvocaeio::tidy::abaqus
