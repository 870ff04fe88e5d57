/// Whether memory ran out while the library worked, which its results do not always tell.
#pragma once

#include <new>

namespace kvocaeio::host {

/// One at a time.
class MemoryWatch {
  public:
    /// Whether the library allocates by the process's operators. On Windows it has its own.
#if defined(_WIN32)
    static constexpr bool kSeesLibrary = false;
#else
    static constexpr bool kSeesLibrary = true;
#endif

    MemoryWatch() {
        hasRunOut_ = false;
        previous_ = std::set_new_handler([] {
            hasRunOut_ = true;
            throw std::bad_alloc();
        });
    }
    ~MemoryWatch() {
        std::set_new_handler(previous_);
    }
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;

    bool ranOut() const {
        return hasRunOut_;
    }

  private:
    static inline bool hasRunOut_ = false;
    std::new_handler previous_;
};

}  // namespace kvocaeio::host
