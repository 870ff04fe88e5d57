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

/// A name as it is looked up: unquoted in upper case, quoted as it stands between its quotes. Parts
/// of a name may be quoted, as in "Part 1-1".Set-1.
std::string nameOf(std::string_view text);

/// A name in the characters that the reader takes, cut to as many as it hands out.
std::string writtenName(std::string_view name);

/// A parameter of a keyword line.
struct Parameter {
    std::string name;   ///< in upper case, without blanks
    std::string value;  ///< as it stands, trimmed; with its quotes
    bool isNamePlain;   ///< no blank between it and the equals sign
    bool isValuePlain;  ///< no blank at its ends, and not too long for the reader
};

/// A keyword line with the lines that continue it.
struct Statement {
    std::string keyword;  ///< in upper case, without blanks and the asterisk
    std::string title;    ///< the same with blanks between its words, to be told
    std::vector<Parameter> parameters;
    bool isKeywordPlain = true;  ///< and there are no quotes and tabs in the line

    /// Splits a keyword line.
    void parse(std::string_view line);

    /// Whether the reader takes the keyword and its values as they are meant. It keeps blanks in
    /// the value of `kept`, and knows parameters by their names wherever these stand.
    bool isPlain(std::string_view kept) const;

    /// Whether a set is of ranges. Many a deck has the flag cut to its first letters.
    bool isGenerated() const;

    const Parameter* find(std::string_view name) const;
    bool has(std::string_view name) const { return find(name) != nullptr; }
    /// The value as it stands; empty without the parameter.
    std::string_view value(std::string_view name) const;
    /// The value as a name that is looked up.
    std::string name(std::string_view name) const { return nameOf(value(name)); }

  private:
    bool isMistaken(std::string_view name) const;
};

}  // namespace kvocaeio::tidy::abaqus
