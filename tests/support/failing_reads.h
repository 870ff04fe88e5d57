/// Reading that fails in the middle of a file, as on a broken disk.
#pragma once

#include <cstddef>
#include <cstdio>

#include "support/descriptors.h"
#include "support/files.h"
#include "text/findings.h"

namespace kvocaeio::test {

/// A host of an import that replaces the descriptor of the file that is opened next by one for
/// writing, which cannot be read: at the `block`-th block of all passes, counted from 1.
class FailingReads {
  public:
    explicit FailingReads(int block)
        : left_(block), written_(std::fopen(folder_.file("written").c_str(), "wb")) {
        // A file that is opened has the lowest descriptor that is free.
        next_ = duplicate(descriptorOf(written_));
        closeDescriptor(next_);
        watch.host = this;
        watch.goesOn = [](void* host, std::size_t) {
            static_cast<FailingReads*>(host)->answer();
            return true;
        };
    }
    ~FailingReads() { std::fclose(written_); }
    FailingReads(const FailingReads&) = delete;
    FailingReads& operator=(const FailingReads&) = delete;

    text::Watch watch;

  private:
    void answer() {
        if (--left_ == 0)
            redirect(descriptorOf(written_), next_);
    }

    const TempFolder folder_;
    int left_;
    std::FILE* written_;
    int next_;
};

}  // namespace kvocaeio::test
