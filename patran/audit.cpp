/// Counts of what the two readers of neutral files hand out.
#include "patran/audit.h"

namespace kvocaeio::patran {

void auditLists(const ListMesh& mesh, report::ImportReport& report) {
    report.addCount("nodes", static_cast<long long>(mesh.nodes.size()));
    report.addCount("elements", static_cast<long long>(mesh.elements.size()));
}

void auditFlat(const IdMap&, const FlatMesh& mesh, report::ImportReport& report) {
    report.addCount("nodes", mesh.nodeCount);
    report.addCount("elements", mesh.elementCount);
    report.addCount("properties", mesh.propertyCount);
}

}  // namespace kvocaeio::patran
