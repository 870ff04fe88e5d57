/// Cards of the tidy deck, in fixed fields of eight columns.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "text/eight_columns.h"

namespace kvocaeio::tidy::nastran {

/// The lines of one card while they are put together.
class OutputCard {
  public:
    static constexpr std::size_t kWidth = 8;

    /// Begins a card. Names and what follows have at most eight characters.
    void begin(std::string_view name) {
        size_ = 0;
        std::memset(characters_.data(), ' ', characters_.size());
        name.copy(characters_.data(), kWidth);
        size_ = kWidth;
    }
    /// One field, at its right end.
    void add(std::string_view text) {
        text.copy(characters_.data() + size_ + kWidth - text.size(), kWidth);
        size_ += kWidth;
    }
    /// One field with a number from 0 to 99,999,999.
    void add(int number) { put(number, ' '); }
    /// The same, with zeros before the number.
    void addWithZeros(int number) { put(number, '0'); }
    /// Text without a field of its own, such as the mark of a second line.
    void append(std::string_view text) {
        text.copy(characters_.data() + size_, text.size());
        size_ += text.size();
    }
    /// The card, with a line end.
    std::string_view finish() {
        characters_[size_++] = '\n';
        return {characters_.data(), size_};
    }

  private:
    void put(int number, char fill) {
        char* const first = characters_.data() + size_;
        size_ += kWidth;
        if (fill == ' ' && text::writeEightColumns(first, number, kWidth) != nullptr)
            return;
        char* at = first + kWidth;
        do {
            *--at = static_cast<char>('0' + number % 10);
            number /= 10;
        } while (number > 0 && at != first);
        std::memset(first, fill, static_cast<std::size_t>(at - first));
    }

    std::array<char, 128> characters_;
    std::size_t size_ = 0;
};

}  // namespace kvocaeio::tidy::nastran
