/// The findings on a deck, each with its code and its words.
#include "abaqus/findings.h"

#include <array>

#include "counted.h"

namespace kvocaeio::host {

namespace {

constexpr std::array<LeftOutWords, 3> kLeftOut = {{
    {"unknown-type", "of unknown type"},
    {"no-nodes", "of a deck without nodes"},
    {"in-no-set", "in no generated set"},
}};

void addRepeats(const OidRepeats& repeats, std::string_view code, std::string_view things,
                const std::string& difference, FileReport& report) {
    const std::size_t number = repeats.conflicts.size();
    if (number != 0)
        report.warn(code, number,
                    "defined more than once, " + difference + ": " + counted(number, things) +
                        (number == 1 ? " (" : " (the first is ") +
                        std::to_string(repeats.conflicts.front()) + ")");
}

}  // namespace

const LeftOutWords& wordsOf(LeftOut reason) {
    return kLeftOut[static_cast<std::size_t>(reason)];
}

void addFindings(const DeckSummary& summary, FileReport& report) {
    std::array<std::size_t, kLeftOut.size()> leftOut{};
    for (const RawSummary& section : summary.raw)
        leftOut[static_cast<std::size_t>(section.reason)] += section.leftOut;
    for (std::size_t reason = 0; reason < leftOut.size(); ++reason)
        report.warn(kLeftOut[reason].code, leftOut[reason],
                    "left out: " + counted(leftOut[reason], "elements") + " " +
                        std::string(kLeftOut[reason].words));
    report.warn("undefined-node", summary.undefinedNodes,
                "no such node: " + counted(summary.undefinedNodes, "times") +
                    " in elements; the first node stands in");
    addRepeats(summary.repeatedNodes, "node-defined-twice", "nodes", "at different places", report);
    addRepeats(summary.repeatedElements, "element-defined-twice", "elements",
               "with different nodes", report);
    report.warnOfNonFinite(summary.box.nonFinite, "nodes");
    std::size_t blank = 0;
    std::size_t repeated = 0;
    for (const NormalisedSummary& section : summary.normalised) {
        blank += section.blank;
        repeated += section.repeated;
    }
    report.warn("repeated-element", repeated,
                "more than once in the mesh: " + counted(repeated, "elements"));
    report.warn("blank-row", blank,
                "without an element: " + counted(blank, "rows") + " of the mesh");
    report.find(
        Finding::Level::kNote, "without-faces", summary.withoutFaces,
        "without faces for loads and surfaces: " + counted(summary.withoutFaces, "elements") +
            " (pyramids, triangles, unknown types)");
}

}  // namespace kvocaeio::host
