/// A list of plain data that grows where it stands, as far as the system can do that.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

namespace kvocaeio::tidy {

/// As `std::vector`, for the largest tables of a deck. The C library moves a large block by its
/// pages where it can: then growing copies nothing, and takes no fresh memory but what is added.
template <class Value>
class GrowingArray {
    static_assert(std::is_trivially_copyable_v<Value>);

  public:
    GrowingArray() = default;
    ~GrowingArray() { std::free(values_); }
    GrowingArray(const GrowingArray& other) { append(other.values_, other.size_); }
    GrowingArray(GrowingArray&& other) noexcept { swap(other); }
    GrowingArray& operator=(GrowingArray other) noexcept {
        swap(other);
        return *this;
    }

    bool empty() const { return size_ == 0; }
    std::size_t size() const { return size_; }
    Value* data() { return values_; }
    const Value* data() const { return values_; }
    Value* begin() { return values_; }
    Value* end() { return values_ + size_; }
    const Value* begin() const { return values_; }
    const Value* end() const { return values_ + size_; }
    Value& operator[](std::size_t row) { return values_[row]; }
    const Value& operator[](std::size_t row) const { return values_[row]; }

    void push_back(const Value& value) { append(&value, 1); }
    /// Adds values that are not in this list.
    void append(const Value* first, std::size_t count) {
        if (count > capacity_ - size_)
            grow(count);
        std::copy_n(first, count, values_ + size_);
        size_ += count;
    }

  private:
    void grow(std::size_t count) {
        constexpr std::size_t kMost = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(Value);
        constexpr std::size_t kLeast = 16;
        if (count > kMost / 2 - std::min(size_, kMost / 2))
            throw std::bad_alloc();
        const std::size_t capacity = std::max({2 * capacity_, size_ + count, kLeast});
        void* const values = std::realloc(values_, capacity * sizeof(Value));
        if (values == nullptr)
            throw std::bad_alloc();
        values_ = static_cast<Value*>(values);
        capacity_ = capacity;
    }
    void swap(GrowingArray& other) noexcept {
        std::swap(values_, other.values_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
    }

    Value* values_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace kvocaeio::tidy
