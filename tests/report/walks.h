/// Files read as a host reads them, with a report and without one, and walked to the end.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>

#include "support/files.h"

namespace kvocaeio::test {

// File work is several times as slow under Wine, and so is everything under a sanitizer.
#if defined(_WIN32) || !defined(NDEBUG)
inline constexpr unsigned kWalkedSeeds = 40;
#else
inline constexpr unsigned kWalkedSeeds = 300;
#endif

/// A report changes nothing of what is read, and what it says was read is what the walks return.
/// The C interface hands out the same.
class ReportedWalks : public testing::Test {
  protected:
    /// Reads the file, or the folder with a design's reports, by all readers of its format.
    void expectTheSame(const std::filesystem::path& path);

    TempFolder folder;
    std::size_t files = 0;  ///< that were walked
};

}  // namespace kvocaeio::test
