/// Counts of what the reader of packages hands out.
#include "package/audit.h"

namespace kvocaeio::package {

void auditModel(const Model& model, report::ImportReport& report) {
    report.addCount("wires", static_cast<long long>(model.wireDiameter.size()));
}

}  // namespace kvocaeio::package
