/// Samples, corpora and examples are read the same with a report and without.
#include "report/walks.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace kvocaeio::test {
namespace {

namespace fs = std::filesystem;

TEST_F(ReportedWalks, OfAllFilesInTheSources) {
    for (const char* name :
         {"examples/data", "tests/fuzz/corpus/abaqus", "tests/fuzz/corpus/nastran",
          "tests/fuzz/corpus/package", "tests/fuzz/corpus/patran", "tests/report/examples",
          "tests/report/clean"})
        for (const auto& entry : fs::directory_iterator(fs::path(KVOCAEIO_SOURCES) / name)) {
            const std::string extension = entry.path().extension().string();
            const bool isFolderOfFiles =
                entry.is_directory() && (extension == ".pat" || extension == ".deck");
            if (!isFolderOfFiles && extension != ".md" && extension != ".py")
                expectTheSame(entry.path());
        }
    EXPECT_GT(files, 500U);
}

}  // namespace
}  // namespace kvocaeio::test
