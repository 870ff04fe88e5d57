/// One deck by several roads: as a host reads it, without the fast ways, and with somebody
/// listening.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>

#include "nastran/findings.h"
#include "nastran/import.h"
#include "nastran/tables.h"
#include <kvocaeio/nastran.h>

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

/// The same for all roads.
inline std::string differenceToTwins(KVONASTRAN_Reader& reader, bool result, const char* path) {
    PatientHost host;
    text::Findings findings(nastran::kFindingKinds);
    const std::string plain = differenceToImport(reader, result, path, {}, nastran::FastWay::kOff);
    if (!plain.empty())
        return "without fast ways: " + plain;
    const std::string heard = differenceToImport(reader, result, path, {&findings, &host.watch},
                                                 nastran::FastWay::kTaken);
    return heard.empty() ? "" : "heard: " + heard;
}

}  // namespace kvocaeio::test
