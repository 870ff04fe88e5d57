/// Findings as the tests compare them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "text/findings.h"

namespace kvocaeio::test {

/// Each place of each finding as "code line:column text", or "code (subject) line:column text", in
/// the order in which the findings were first noticed.
inline std::vector<std::string> describe(const text::Findings& findings) {
    std::vector<std::string> out;
    for (std::size_t row = 0; row < findings.entryCount(); ++row) {
        const text::FindingEntry& entry = findings.entry(row);
        std::string name(entry.kind->code);
        if (entry.subjectLength > 0)
            name += " (" + std::string(entry.subject()) + ")";
        for (const text::FindingPlace& place : entry.places())
            out.push_back(name + " " + std::to_string(place.line) + ":" +
                          std::to_string(place.column) + " " + std::string(place.text()));
    }
    return out;
}

/// How many findings of an island's kind there are, whatever their subjects.
template <class Kind>
std::size_t countOf(const text::Findings& findings, Kind kind) {
    return findings.countOf(rowOf(kind));
}

/// The places that are kept of an island's kind, over all subjects.
template <class Kind>
std::vector<text::FindingPlace> placesOf(const text::Findings& findings, Kind kind) {
    std::vector<text::FindingPlace> out;
    for (std::size_t row = 0; row < findings.entryCount(); ++row)
        if (findings.entry(row).kind == &rowOf(kind))
            for (const text::FindingPlace& place : findings.entry(row).places())
                out.push_back(place);
    return out;
}

}  // namespace kvocaeio::test
