/// The reason of a thread's last failure, and the way from whatever fails inside to a status.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <new>
#include <string_view>

#include <kvocaeio/kvocaeio.h>

namespace kvocaeio::c_interface {

/// Keeps the reason for the calling thread, cut to what fits, and returns `status`. Allocates
/// nothing.
kvocaeio_status fail(kvocaeio_status status, std::string_view text, std::string_view file = {},
                     std::int64_t line = 0) noexcept;

inline kvocaeio_status failOfMemory(std::string_view file = {}) noexcept {
    return fail(KVOCAEIO_OUT_OF_MEMORY, "memory ran out", file);
}

/// Runs `call()`, out of which no exception comes.
template <class Call>
kvocaeio_status guarded(const Call& call) noexcept {
    try {
        return call();
    } catch (const std::bad_alloc&) {
        return failOfMemory();
    } catch (const std::exception& error) {
        return fail(KVOCAEIO_INTERNAL, error.what());
    }
}

}  // namespace kvocaeio::c_interface
