/// The library's import beside the plain one.
#pragma once

#include <string>
#include <vector>

#include "package/naive_package.h"
#include "support/files.h"
#include <kvocaeio/package.h>

namespace kvocaeio::test {

/// One step in a reader's life.
struct ImportStep {
    std::string content;
    bool cleanBefore = false;
};

/// Lets a reader of the library and a plain one import the same files.
class PackageComparison {
  public:
    /// What differs after the first step that the two do not take alike, with the file; empty when
    /// there is none. Compared are the results and what every query gives, also those for indexes
    /// that are not there.
    std::string firstDifference(const std::vector<ImportStep>& steps);

  private:
    TempFolder folder_;
};

}  // namespace kvocaeio::test
