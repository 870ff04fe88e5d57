/// The text of a place that is no line, such as "element 7, P1".
#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>

#include "text/findings.h"

namespace kvocaeio::text {

/// Words and numbers one after the other, cut to what a place holds. Allocates nothing.
class PlaceText {
  public:
    template <class... Parts>
    explicit PlaceText(const Parts&... parts) {
        (add(parts), ...);
    }
    operator std::string_view() const { return {characters_.data(), length_}; }

  private:
    void add(std::string_view words) {
        words = words.substr(0, characters_.size() - length_);
        std::ranges::copy(words, characters_.data() + length_);
        length_ += words.size();
    }
    void add(long long number) {
        std::array<char, 24> digits;
        const auto [end, error] = std::to_chars(digits.begin(), digits.end(), number);
        add(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.begin())));
    }

    std::array<char, FindingPlace::kMostText> characters_;
    std::size_t length_ = 0;
};

/// Notes what no line is concerned with; `findings` is null while nobody listens. The parts of its
/// place are put together where the place is kept.
template <class Kind, class... Parts>
void noteText(Findings* findings, Kind kind, const Parts&... parts) {
    if (findings == nullptr)
        return;
    if (FindingPlace* const place = findings->count(rowOf(kind), {}))
        place->setText(PlaceText(parts...));
}

}  // namespace kvocaeio::text
