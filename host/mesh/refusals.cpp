/// The refusals in words.
#include "mesh/refusals.h"

#include "clean_name.h"
#include "counted.h"
#include "file_report.h"
#include "tidy/tidied_deck.h"

namespace kvocaeio::host {

void refuseRepeats(const TidiedDeck& deck) {
    for (const ImportFinding& finding : deck.findings().findings)
        if (finding.code == "tidy.abaqus-node-repeated" ||
            finding.code == "tidy.abaqus-element-repeated")
            throw FileError("is not converted: " + finding.text + " (" +
                                counted(static_cast<std::size_t>(finding.count), "times") +
                                ", first in line " + std::to_string(finding.places.front().line) +
                                "): give each a number of its own, or --force to take the last "
                                "definition",
                            "defined-twice");
}

void refuseErrors(const ImportFindings& imported, const std::string& source) {
    const ImportFinding* const first = imported.firstError();
    if (first == nullptr)
        return;
    const long long line = first->places.front().line;
    const std::size_t errors = imported.tally().of(Level::kError);
    throw FileError("is not converted for " + counted(errors, "errors") + " of the import, " +
                        (errors > 1 ? "the first of " : "") + "which is" +
                        (line == 0 ? "" : " in line " + std::to_string(line)) + ": " +
                        cleanName(first->text) + "; kvocaeio check " + cleanName(source) +
                        " shows all, and --force converts what was read",
                    "import-errors");
}

void refuseInfinitePlaces(std::size_t nodes) {
    if (nodes != 0)
        throw FileError(
            "has " + counted(nodes, "nodes") + " with coordinates that are no finite numbers",
            "not-finite");
}

}  // namespace kvocaeio::host
