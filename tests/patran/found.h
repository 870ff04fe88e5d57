/// What the two readers find in a neutral file, audits included.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "patran/audit.h"
#include "patran/import.h"
#include "report/import_report.h"
#include "support/captured_output.h"
#include "support/files.h"
#include "support/findings.h"
#include "text/file.h"

namespace kvocaeio::test {

/// Each place of each finding, as `describe` writes them.
struct Found {
    explicit Found(const std::string& content) {
        const CapturedOutput quiet;
        const TempFolder folder;
        const std::string path = folder.write("a.pat", content);
        {
            report::ImportReport filled;
            patran::ListMesh mesh;
            const text::File file = text::openFile(path.c_str(), "rb");
            EXPECT_TRUE(importLists(file.get(), {&filled.findings, nullptr}, mesh));
            lists = describe(filled.findings);
        }
        report::ImportReport filled;
        patran::IdMap nodeIds;
        patran::FlatMesh mesh;
        EXPECT_TRUE(importFlat(path.c_str(), {&filled.findings, nullptr}, nodeIds, mesh));
        auditFlat(nodeIds, mesh, filled);
        arrays = describe(filled.findings);
    }

    std::vector<std::string> lists;   ///< of `CKVO_PatranIO_Bridge`
    std::vector<std::string> arrays;  ///< of `CPatranReader`
};

/// What both find alike.
inline std::vector<std::string> foundIn(const std::string& content) {
    const Found found(content);
    EXPECT_EQ(found.lists, found.arrays);
    return found.lists;
}

}  // namespace kvocaeio::test
