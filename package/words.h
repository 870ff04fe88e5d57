/// Words that may be written in any case: sought in lines, compared with keywords.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <span>
#include <string_view>

#include "text/ascii.h"

namespace kvocaeio::package {

/// Whether `word` is `upper`, which is given in upper case, in any case.
inline bool equalsInAnyCase(std::string_view word, std::string_view upper) {
    return std::ranges::equal(word, upper, {}, text::toUpper);
}

/// A keyword, given in upper case, of two characters at least. It is borrowed.
class Word {
  public:
    constexpr explicit Word(std::string_view upper) : upper_(upper) {}

    /// First place between `first` and `last` where the word stands in any case; `last` without
    /// one.
    const char* operator()(const char* first, const char* last) const {
        const auto length = static_cast<std::ptrdiff_t>(upper_.size());
        if (last - first < length)
            return last;
        const char* const end = last - length + 1;
        const char* place = first;
        for (; end - place >= kStride; place += kStride)
            if (mayStartIn(place))
                if (const char* found = findStart(place, place + kStride); found != place + kStride)
                    return found;
        place = findStart(place, end);
        return place == end ? last : place;
    }

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
    static constexpr std::ptrdiff_t kStride = 32;

    // Brings both cases of a letter to the same value, and other characters together that only the
    // exact comparison tells apart.
    static constexpr unsigned char blur(char c) {
        return static_cast<unsigned char>(static_cast<unsigned char>(c) | 0x20U);
    }

    // Whether the word's first two characters may stand together somewhere in the stride. The loop
    // has no way out, so that compilers turn it into vector instructions.
    bool mayStartIn(const char* stride) const {
        const unsigned char first = blur(upper_[0]);
        const unsigned char second = blur(upper_[1]);
        unsigned char any = 0;
        for (std::ptrdiff_t i = 0; i < kStride; ++i)
            any = static_cast<unsigned char>(
                any | static_cast<unsigned char>(static_cast<int>(blur(stride[i]) == first) &
                                                 static_cast<int>(blur(stride[i + 1]) == second)));
        return any != 0;
    }

    const char* findStart(const char* first, const char* end) const {
        return std::find_if(first, end, [&](const char& start) {
            return text::toUpper(start) == upper_[0] &&
                   equalsInAnyCase({&start, upper_.size()}, upper_);
        });
    }

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
    std::size_t firstHeldBy(std::string_view line) const {
        std::size_t found = words_.size();
        std::size_t i = 0;
        while (line.size() - i > kStride && !mayHoldSecond(line.data() + i + 1))
            i += kStride;
        unsigned begun = 0;  // the words, by bits, whose first character stands before `i`
        for (; i < line.size(); ++i) {
            const auto c = static_cast<unsigned char>(line[i]);
            for (unsigned words = begun & withSecond_[c]; words != 0; words &= words - 1) {
                const auto word = static_cast<std::size_t>(std::countr_zero(words));
                if (word < found &&
                    equalsInAnyCase(line.substr(i - 1, words_[word].size()), words_[word]))
                    found = word;
            }
            begun = withFirst_[c];
        }
        return found;
    }

  private:
    static constexpr std::size_t kStride = 32;

    // Whether the second character of any word of a list may stand in the stride. Rows of numbers
    // are passed over quickly.
    static bool mayHoldSecond(const char* stride) {
        unsigned char any = 0;
        for (std::size_t i = 0; i < kStride; ++i) {
            const auto c = static_cast<unsigned char>(stride[i]);
            any = static_cast<unsigned char>(any | (c & 0x40U) | static_cast<unsigned>(c == '#'));
        }
        return any != 0;
    }

    std::span<const std::string_view> words_;
    std::array<unsigned, 256> withFirst_{};   // words by bits
    std::array<unsigned, 256> withSecond_{};  // likewise
};

}  // namespace kvocaeio::package
