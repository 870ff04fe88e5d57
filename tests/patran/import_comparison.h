/// The library's readers beside the plain ones.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "support/files.h"
#include <kvocaeio/report.h>

namespace kvocaeio::test {

struct NamedCase {
    std::string name;
    std::vector<std::string> files;  ///< imported one after the other by one reader
};

/// Imports neutral files by both readers of the library and by the plain ones. Every second case is
/// imported with a report; where that tells of no loss, both readers must have read the same mesh.
class ImportComparison {
  public:
    /// What differs in the first case that is not read alike, with its files; empty when all are.
    /// Compared are results, standard output, and all that the queries give within and around the
    /// counts. Many cases at a time save the cost of catching standard output for each.
    std::string firstDifference(const std::vector<NamedCase>& cases);

    /// In how many cases a report told of no loss.
    std::size_t withoutLoss() const { return withoutLoss_; }

  private:
    std::string printedBy(const std::vector<NamedCase>& cases, std::string& difference);

    TempFolder folder_;
    CKVOImportReport report_;
    std::size_t caseNumber_ = 0;
    std::size_t withoutLoss_ = 0;
};

}  // namespace kvocaeio::test
