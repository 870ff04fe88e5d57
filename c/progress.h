/// How far an import is, as a host that follows it is told.
#pragma once

#include <algorithm>
#include <cstdint>

#include "text/findings.h"
#include <kvocaeio/kvocaeio.h>

namespace kvocaeio::c_interface {

/// Follows all passes of an import. The readers tell how far they are in a file; a place before the
/// last one is another pass.
class Progress {
  public:
    Progress(kvocaeio_progress tell, void* user) : tell_(tell), user_(user) {
        watch.host = this;
        watch.goesOn = [](void* host, std::size_t bytesRead) {
            return static_cast<Progress*>(host)->goesOn(bytesRead);
        };
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// So many bytes are to be expected from here on.
    void expect(std::uint64_t bytes) { total_ = done_ + bytes; }

    text::Watch watch;

  private:
    bool goesOn(std::uint64_t bytesRead) {
        if (bytesRead < place_)
            before_ += place_;
        place_ = bytesRead;
        done_ = std::clamp(before_ + place_, done_, std::max(done_, total_));
        return tell_(user_, done_, std::max(done_, total_)) == 0;
    }

    kvocaeio_progress tell_;
    void* user_;
    std::uint64_t total_ = 0;
    std::uint64_t done_ = 0;
    std::uint64_t before_ = 0;  // bytes of earlier passes
    std::uint64_t place_ = 0;
};

}  // namespace kvocaeio::c_interface
