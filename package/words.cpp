/// The search for words, in strides that compilers turn into vector instructions.
#include "package/words.h"

#include <bit>

namespace kvocaeio::package {

namespace {

constexpr std::ptrdiff_t kStride = 32;

// Brings both cases of a letter to the same value, and other characters together that only the
// exact comparison tells apart.
constexpr unsigned char blur(char c) {
    return static_cast<unsigned char>(static_cast<unsigned char>(c) | 0x20U);
}

// Whether the second character of any word of a list may stand in the stride. Rows of numbers are
// passed over quickly.
bool mayHoldSecond(const char* stride) {
    unsigned char any = 0;
    for (std::ptrdiff_t i = 0; i < kStride; ++i) {
        const auto c = static_cast<unsigned char>(stride[i]);
        any = static_cast<unsigned char>(any | (c & 0x40U) | static_cast<unsigned>(c == '#'));
    }
    return any != 0;
}

}  // namespace

const char* Word::operator()(const char* first, const char* last) const {
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

// Whether the word's first two characters may stand together somewhere in the stride. The loop has
// no way out, so that compilers turn it into vector instructions.
bool Word::mayStartIn(const char* stride) const {
    const unsigned char first = blur(upper_[0]);
    const unsigned char second = blur(upper_[1]);
    unsigned char any = 0;
    for (std::ptrdiff_t i = 0; i < kStride; ++i)
        any = static_cast<unsigned char>(
            any | static_cast<unsigned char>(static_cast<int>(blur(stride[i]) == first) &
                                             static_cast<int>(blur(stride[i + 1]) == second)));
    return any != 0;
}

const char* Word::findStart(const char* first, const char* end) const {
    return std::find_if(first, end, [&](const char& start) {
        return text::toUpper(start) == upper_[0] &&
               equalsInAnyCase({&start, upper_.size()}, upper_);
    });
}

std::size_t WordList::firstHeldBy(std::string_view line) const {
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

}  // namespace kvocaeio::package
