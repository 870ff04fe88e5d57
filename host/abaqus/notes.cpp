/// Notes on repeated OIDs, sets, and the normalised mesh.
#include "abaqus/notes.h"

#include <set>

#include "counted.h"
#include "file_report.h"

namespace kvocaeio::host {

namespace {

std::string firstOf(const std::vector<int>& oids) {
    return counted(oids.size(), "OIDs") + " (" + std::to_string(oids.front()) +
           (oids.size() > 1 ? " first)" : ")");
}

}  // namespace

void checkConflicts(const OidRepeats& nodes, const OidRepeats& elements, bool force,
                    std::vector<Note>& remarks) {
    std::string what;
    if (!nodes.conflicts.empty())
        what = firstOf(nodes.conflicts) + " of nodes";
    if (!elements.conflicts.empty())
        what += (what.empty() ? "" : " and ") + firstOf(elements.conflicts) + " of elements";
    if (what.empty())
        return;
    if (!force)
        throw FileError(what +
                            " are defined more than once with different content, as in a deck of "
                            "several parts: give it in one numbering, or --force to take the last "
                            "definition of each node and every element",
                        "defined-twice");
    remarks.push_back({"oid-conflicts", nodes.conflicts.size() + elements.conflicts.size(),
                       what + " are defined more than once with different content: of nodes "
                              "the last definition is taken"});
}

void takeSetNotes(const DeckTables& tables, std::vector<Note>& losses) {
    std::set<std::string> others;
    for (std::size_t s = 0; s < tables.solids; ++s)
        others.insert(tables.normalised[s].elset);
    for (const Section& section : tables.raw)
        others.erase(section.elset);
    leaveOut(losses, "generated-sets", others.size(), "generated sets",
             ", which --normalised carries over");
}

void takeNormalisedNotes(const DeckSummary& summary, bool withShells, std::vector<Note>& losses,
                         std::vector<Note>& remarks) {
    leaveOut(losses, "in-no-set", summary.otherLeftOut, "elements", " in no generated set");
    std::size_t repeated = 0;
    for (const NormalisedSummary& section : summary.normalised)
        if (withShells || section.list == "solid")
            repeated += section.repeated;
    if (repeated != 0)
        remarks.push_back(
            {"repeated-element", repeated,
             counted(repeated, "elements") + " written once more for being in several sets"});
    if (summary.undefinedNodes != 0)
        remarks.push_back({"undefined-node", summary.undefinedNodes,
                           counted(summary.undefinedNodes, "times") +
                               " the first node stands in for one that the deck lacks"});
}

void requireNormalised(const AbaqusDeck& deck) {
    if (!deck.sortFailure.empty())
        throw FileError("the deck cannot be normalised: " + deck.sortFailure, "not-normalised");
}

void takeSortFailure(const AbaqusDeck& deck, std::vector<Note>& remarks) {
    if (deck.sortFailure.empty())
        return;
    remarks.push_back({"not-normalised", 1,
                       "loads, surfaces and generated sets are not known: the deck cannot be "
                       "normalised: " +
                           deck.sortFailure});
}

}  // namespace kvocaeio::host
