/// One deck by several roads: as a host reads it, without the fast ways, and with somebody
/// listening.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "nastran/findings.h"
#include "nastran/import.h"
#include "nastran/tables.h"
#include "support/findings.h"
#include <kvocaeio/nastran.h>
#include <kvocaeio/report.h>

namespace kvocaeio::test {

/// A host that lets an import go on a number of times; negative: for ever.
struct PatientHost {
    explicit PatientHost(long times = -1) : left(times) {}

    static bool goesOn(void* host, std::size_t) {
        long& times = static_cast<PatientHost*>(host)->left;
        return times < 0 || times-- > 0;
    }

    text::Watch watch{goesOn, this};
    long left;
};

template <class Number>
bool areSame(const Number* one, const Number* other, int rows, std::size_t width) {
    return rows <= 0 ||
           std::memcmp(one, other, static_cast<std::size_t>(rows) * width * sizeof(Number)) == 0;
}

/// What another import of the deck that `reader` has read, or could not read, makes of it. Empty
/// where it is the same.
inline std::string differenceToImport(KVONASTRAN_Reader& reader, bool result, const char* path,
                                      const text::Listener& listener, nastran::FastWay fastWay) {
    nastran::NastranFileInfo info;
    if (nastran::importDeck(path, info, listener, fastWay) != result)
        return "result";
    if (info.extent.maxNodeId != reader.GetNodeCout() ||
        info.extent.maxElemId != reader.GetElemCout())
        return "extent";
    if (!result)
        return info.decks.empty() ? "" : "deck";
    const nastran::DeckTables& deck = info.decks.back();
    if (deck.sectionCount != reader.GetSectionCout() ||
        nastran::countMaterials(deck) != reader.GetPropertiesCout())
        return "section count";
    if (!areSame(deck.nodes.get(), reader.GetNodeVector(), reader.GetNodeCout(), 4))
        return "nodes";
    if (!areSame(deck.elements.get(), reader.GetElemVector(), reader.GetElemCout(), 9))
        return "elements";
    return areSame(deck.sections.get(), reader.GetSectionVector(), reader.GetSectionCout(), 3)
               ? ""
               : "sections";
}

/// What a reader whose import is reported makes of the deck, likewise.
inline std::string differenceToReported(KVONASTRAN_Reader& reader, bool result, const char* path) {
    KVONASTRAN_Reader other;
    CKVOImportReport report;
    CKVOImportReport::FindingData failure;
    if (other.SetFilePath(path, &report) != result || report.GetFailure(&failure) == result)
        return "result";
    if (other.GetNodeCout() != reader.GetNodeCout() || other.GetElemCout() != reader.GetElemCout())
        return "extent";
    if (!result)
        return "";
    if (other.GetSectionCout() != reader.GetSectionCout() ||
        other.GetPropertiesCout() != reader.GetPropertiesCout())
        return "section count";
    const bool areAlike =
        areSame(other.GetNodeVector(), reader.GetNodeVector(), reader.GetNodeCout(), 4) &&
        areSame(other.GetElemVector(), reader.GetElemVector(), reader.GetElemCout(), 9) &&
        areSame(other.GetSectionVector(), reader.GetSectionVector(), reader.GetSectionCout(), 3);
    return areAlike ? "" : "rows";
}

/// The same for all roads. Those with and without the fast ways find the same, too.
inline std::string differenceToTwins(KVONASTRAN_Reader& reader, bool result, const char* path) {
    PatientHost host;
    text::Findings plainFindings;
    text::Findings fastFindings;
    const std::string plain =
        differenceToImport(reader, result, path, {&plainFindings, nullptr}, nastran::FastWay::kOff);
    if (!plain.empty())
        return "without fast ways: " + plain;
    const std::string heard = differenceToImport(reader, result, path, {&fastFindings, &host.watch},
                                                 nastran::FastWay::kTaken);
    if (!heard.empty())
        return "heard: " + heard;
    const std::vector<std::string> inPlain = describe(plainFindings);
    const std::vector<std::string> inFast = describe(fastFindings);
    const auto [one, other] = std::ranges::mismatch(inPlain, inFast);
    if (one != inPlain.end() || other != inFast.end())
        return "findings: " + (one == inPlain.end() ? "none" : *one) + " / " +
               (other == inFast.end() ? "none" : *other);
    const std::string reported = differenceToReported(reader, result, path);
    return reported.empty() ? "" : "reported: " + reported;
}

}  // namespace kvocaeio::test
