/// Counts of the raw tables and of the normalised mesh.
#include "abaqus/audit.h"

namespace kvocaeio::abaqus {

void auditImport(const AbaqusModel& model, report::ImportReport& report) {
    const auto add = [&](std::string_view name, std::size_t count) {
        report.addCount(name, static_cast<long long>(count));
    };
    add("nodes", model.nodeBlock.ids.size());
    add("element sections", model.elemSections.size());
    add("shell sections", model.shellSections.size());
}

void auditNormalised(const AbaqusModel& model, report::ImportReport& report) {
    report.addCount("normalised sections of solids",
                    static_cast<long long>(model.solidSections.size()));
}

}  // namespace kvocaeio::abaqus
