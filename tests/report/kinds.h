/// All kinds of finding that there are.
#pragma once

#include <vector>

#include "abaqus/findings.h"
#include "nastran/findings.h"
#include "package/findings.h"
#include "patran/findings.h"
#include "report/mesh_audit.h"
#include "tidy/abaqus/findings.h"
#include "tidy/findings.h"
#include "tidy/nastran/findings.h"

namespace kvocaeio::test {

/// Island after island, each in the order of its table.
inline std::vector<text::FindingKind> allKinds() {
    std::vector<text::FindingKind> kinds;
    const auto add = [&](const auto& table) {
        kinds.insert(kinds.end(), table.begin(), table.end());
    };
    add(abaqus::kFindingKinds);
    add(nastran::kFindingKinds);
    add(package::kFindingKinds);
    add(patran::kFindingKinds);
    add(report::kMeshFindingKinds);
    add(tidy::kFindingKinds);
    add(tidy::abaqus::kFindingKinds);
    add(tidy::nastran::kFindingKinds);
    add(text::kFileFindingKinds);
    return kinds;
}

}  // namespace kvocaeio::test
