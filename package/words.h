/// Words that may be written in any case: sought in lines, compared with keywords.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "text/ascii.h"

namespace kvocaeio::package {

inline bool equalsInAnyCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, text::toUpper, text::toUpper);
}

/// A keyword, given in upper case, of two characters at least. It is borrowed.
class Word {
  public:
    constexpr explicit Word(std::string_view upper) : upper_(upper) {}

    /// First place between `first` and `last` where the word stands in any case; `last` without
    /// one.
    const char* operator()(const char* first, const char* last) const;

    /// Whether the line holds the word anywhere, as a part of another word, too.
    bool isHeldBy(std::string_view line) const {
        const char* const last = line.data() + line.size();
        return (*this)(line.data(), last) != last;
    }

    /// Whether a word scanned from a line stands for this one: it may be any front part of it.
    bool isMatchedBy(std::string_view scanned) const {
        return equalsInAnyCase(scanned, upper_.substr(0, scanned.size()));
    }

  private:
    bool mayStartIn(const char* stride) const;
    const char* findStart(const char* first, const char* end) const;

    std::string_view upper_;
};

/// Up to 32 keywords in the order in which a line is tested for them. The second character of each
/// is a letter or "#". They are borrowed.
class WordList {
  public:
    constexpr explicit WordList(std::span<const std::string_view> words) : words_(words) {
        for (std::size_t c = 0; c < withFirst_.size(); ++c)
            for (std::size_t i = 0; i < words.size(); ++i) {
                const char upper = text::toUpper(static_cast<char>(c));
                withFirst_[c] |= static_cast<unsigned>(upper == words[i][0]) << i;
                withSecond_[c] |= static_cast<unsigned>(upper == words[i][1]) << i;
            }
    }

    /// Index of the first word of the list that the line holds; the list's length where it holds
    /// none. One walk along the line serves all words.
    std::size_t firstHeldBy(std::string_view line) const;

  private:
    std::span<const std::string_view> words_;
    std::array<unsigned, 256> withFirst_{};   // words by bits
    std::array<unsigned, 256> withSecond_{};  // likewise
};

}  // namespace kvocaeio::package
