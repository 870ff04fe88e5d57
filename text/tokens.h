/// Text split into tokens exactly as `strtok` splits it, without writing to it.
#pragma once

#include <array>
#include <string_view>

namespace kvocaeio::text {

/// A set of delimiter characters.
class Delimiters {
  public:
    constexpr explicit Delimiters(std::string_view characters) {
        for (const char c : characters)
            holds_[static_cast<unsigned char>(c)] = true;
    }
    constexpr bool contains(char c) const { return holds_[static_cast<unsigned char>(c)]; }

  private:
    std::array<bool, 256> holds_{};
};

/// Walks the tokens of one text. Every call may use another delimiter set, as successive calls of
/// `strtok` may.
class Tokens {
  public:
    explicit Tokens(std::string_view text)
        : position_(text.data()), end_(text.data() + text.size()) {}

    /// Takes the next token; never an empty one. False, with `token` empty, when none is left.
    bool next(const Delimiters& delimiters, std::string_view& token) {
        while (position_ != end_ && delimiters.contains(*position_))
            ++position_;
        const char* first = position_;
        while (position_ != end_ && !delimiters.contains(*position_))
            ++position_;
        token = std::string_view(first, static_cast<std::size_t>(position_ - first));
        if (position_ != end_)
            ++position_;  // the delimiter that ended the token is used up with it
        return !token.empty();
    }

    /// What no token has taken yet.
    std::string_view rest() const {
        return {position_, static_cast<std::size_t>(end_ - position_)};
    }

  private:
    const char* position_;
    const char* end_;
};

/// `text` without the blanks (the space character alone) at both ends.
constexpr std::string_view trimBlanks(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

}  // namespace kvocaeio::text
