/// Lists of the package model: they grow without moving what they hold, and test every index that
/// comes from a file or a host.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <stdexcept>
#include <utility>
#include <vector>

namespace kvocaeio::package {

/// The error of an index outside a list. Its text is the same on every platform.
[[noreturn]] inline void throwBadSubscript() {
    throw std::out_of_range("invalid vector<T> subscript");
}

/// A list in chunks of equal length. One vector would need twice its own memory, and more, whenever
/// it grows; a package may have a hundred megabytes of wire points.
template <class T>
class ChunkedList {
  public:
    std::size_t size() const { return size_; }

    void append(T value) {
        if (chunks_.empty() || chunks_.back().size() == kChunkLength)
            chunks_.emplace_back().reserve(kChunkLength);
        chunks_.back().push_back(std::move(value));
        ++size_;
    }

    /// Drops all entries from `count` on.
    void shrink(std::size_t count) {
        while (size_ > count) {
            const std::size_t surplus = std::min(size_ - count, chunks_.back().size());
            chunks_.back().erase(chunks_.back().end() - static_cast<std::ptrdiff_t>(surplus),
                                 chunks_.back().end());
            if (chunks_.back().empty())
                chunks_.pop_back();
            size_ -= surplus;
        }
    }

    void clear() {
        chunks_.clear();
        size_ = 0;
    }

    /// For an index that is known to be inside.
    const T& operator[](std::size_t index) const {
        return chunks_[index / kChunkLength][index % kChunkLength];
    }
    T& operator[](std::size_t index) { return chunks_[index / kChunkLength][index % kChunkLength]; }

    /// For any index. Throws the error of `throwBadSubscript`.
    const T& at(long long index) const {
        if (index < 0 || static_cast<unsigned long long>(index) >= size_)
            throwBadSubscript();
        return (*this)[static_cast<std::size_t>(index)];
    }

  private:
    static constexpr std::size_t kChunkLength = std::bit_floor((std::size_t{1} << 16) / sizeof(T));

    std::vector<std::vector<T>> chunks_;
    std::size_t size_ = 0;
};

}  // namespace kvocaeio::package
