/// The one place of the C interface's state, which each thread has its own of.
#include "c/failure.h"

#include <array>
#include <span>

namespace {

// Arrays, since what is told when memory has run out must not need any.
struct {
    std::array<char, 512> text;
    std::array<char, 1024> file;
    std::int64_t line;
} thread_local lastFailure;

void keep(std::string_view what, std::span<char> field) {
    field[what.copy(field.data(), field.size() - 1)] = '\0';
}

}  // namespace

namespace kvocaeio::c_interface {

kvocaeio_status fail(kvocaeio_status status, std::string_view text, std::string_view file,
                     std::int64_t line) noexcept {
    keep(text, lastFailure.text);
    keep(file, lastFailure.file);
    lastFailure.line = line;
    return status;
}

}  // namespace kvocaeio::c_interface

const char* kvocaeio_error_text() {
    return lastFailure.text.data();
}

const char* kvocaeio_error_file() {
    return lastFailure.file.data();
}

std::int64_t kvocaeio_error_line() {
    return lastFailure.line;
}
