/// A deck that is tidied before it is read.
#pragma once

#include <filesystem>

#include "c/content.h"
#include "tidy/deck.h"

namespace kvocaeio::c_interface {

/// The rewritten deck, in a temporary folder that goes away with its holder.
class TidiedFile {
  public:
    TidiedFile() = default;
    ~TidiedFile();
    TidiedFile(const TidiedFile&) = delete;
    TidiedFile& operator=(const TidiedFile&) = delete;

    /// Tidies the deck of a request where it needs that; `path()` is empty where it does not. What
    /// is noticed goes into the report of the request.
    kvocaeio_status tidy(const Request& request);

    const std::filesystem::path& path() const { return path_; }
    tidy::Outcome& outcome() { return outcome_; }

  private:
    kvocaeio_status run(const Request& request, const std::filesystem::path* target);

    std::filesystem::path folder_;
    std::filesystem::path path_;
    tidy::Outcome outcome_;
};

}  // namespace kvocaeio::c_interface
