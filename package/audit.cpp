/// Counts of what the reader of packages hands out, and what queries after the import will not
/// return as the file means it.
#include "package/audit.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "package/findings.h"

namespace kvocaeio::package {

namespace {

constexpr std::size_t kNumbersOfPoint = 3;

// The numbers of a wire's points, in `wirePoints`.
struct WireNumbers {
    std::size_t first;
    std::size_t end;
};

WireNumbers numbersOf(const WireTables& wires, std::size_t wire) {
    const auto first = [&](std::size_t each) {
        return each == wires.wireFirstPoint.size()
                   ? wires.wirePoints.size()
                   : static_cast<std::size_t>(wires.wireFirstPoint[each]) * kNumbersOfPoint;
    };
    return {first(wire), first(wire + 1)};
}

void noteWire(text::Findings& findings, Finding finding, std::size_t wire) {
    findings.note(rowOf(finding), 0, 0, "wire " + std::to_string(wire));
}

void auditPoints(const WireTables& wires, text::Findings& findings) {
    for (std::size_t wire = 0; wire < wires.wireFirstPoint.size(); ++wire) {
        const WireNumbers numbers = numbersOf(wires, wire);
        double sum = wires.wireDiameter[wire];
        for (std::size_t i = numbers.first; i < numbers.end; ++i)
            sum += wires.wirePoints[i] * 0.0;  // not a number, once one of them is none or infinite
        if (!std::isfinite(sum)) [[unlikely]]
            noteWire(findings, Finding::kNotFinite, wire);
        if (numbers.end - numbers.first < 2 * kNumbersOfPoint) [[unlikely]]
            noteWire(findings, Finding::kWireShort, wire);
    }
}

// The first wire of each model, counted from 1 in both; 0 without one. Wires of no model are noted.
std::vector<std::size_t> firstWires(const WireTables& wires, std::size_t modelCount,
                                    text::Findings& findings) {
    std::vector<std::size_t> first(modelCount + 1);
    for (std::size_t wire = 0; wire < wires.wireProfile.size(); ++wire) {
        const int profile = wires.wireProfile[wire];
        if (profile < 1 || static_cast<std::size_t>(profile) > modelCount) [[unlikely]]
            findings.note(rowOf(Finding::kProfileUnknown), 0, 0, std::to_string(profile));
        else if (first[static_cast<std::size_t>(profile)] == 0)
            first[static_cast<std::size_t>(profile)] = wire + 1;
    }
    return first;
}

// What the query for a wire model returns: the colour is that of the wire whose index is the number
// of the model.
void auditProfiles(const Model& model, text::Findings& findings) {
    const std::size_t modelCount = model.wireProfileNames ? model.wireProfileNames->size() : 0;
    const std::vector<std::size_t> first = firstWires(model, modelCount, findings);
    for (std::size_t profile = 1; profile <= modelCount; ++profile) {
        if (first[profile] == 0)
            continue;  // the query is false before it comes to the colour
        const auto note = [&](Finding finding) {
            findings.note(rowOf(finding), 0, 0, "wire model " + std::to_string(profile));
        };
        if (profile >= model.wireColorId.size() ||
            !model.colorTable.reaches(model.wireColorId[profile]))
            note(Finding::kProfileColorUnknown);
        else if (model.wireColorId[profile] != model.wireColorId[first[profile] - 1])
            note(Finding::kProfileColorOther);
    }
}

}  // namespace

void auditBodies(const Model& model, report::ImportReport& report) {
    const std::size_t bodies = model.components ? model.components->size() : 0;
    std::size_t balls = 0;
    for (std::size_t body = 0; body < bodies; ++body)
        balls += model.components->shape(body).type == ComponentType::kBall ? 1U : 0U;
    report.addCount("bodies", static_cast<long long>(bodies));
    report.addCount("solder balls", static_cast<long long>(balls));
}

void auditPackage(const Model& model, report::ImportReport& report) {
    auditBodies(model, report);
    report.addCount("wires", model.wireCount);
    report.addCount("wire points",
                    static_cast<long long>(model.wirePoints.size() / kNumbersOfPoint));
    report.addCount("wire profiles", model.wireProfileMax);
    auditPoints(model, report.findings);
    auditProfiles(model, report.findings);
}

}  // namespace kvocaeio::package
