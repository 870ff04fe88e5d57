/// A report walked to its end, which must agree with itself.
#pragma once

#include <array>
#include <cstdlib>
#include <cstring>

#include <kvocaeio/report.h>

namespace kvocaeio::test {

/// Whether a record's text ends inside its field.
template <std::size_t size>
bool endsInside(const char (&field)[size]) {
    return std::memchr(field, '\0', size) != nullptr;
}

/// Walks findings, places and counts; ends the process where they contradict each other.
inline void walkReport(CKVOImportReport& report, bool imported) {
    CKVOImportReport::FindingData finding{};
    CKVOImportReport::PlaceData place{};
    CKVOImportReport::CountData count{};
    std::array<long long, 3> counts{};
    bool isSound = true;
    for (report.GetFindingBegin(); report.GetFindingNext(&finding);) {
        isSound = isSound && finding.severity >= 0 && finding.severity < 3 &&
                  finding.count >= finding.placeNum && finding.placeNum >= 1 &&
                  endsInside(finding.code) && endsInside(finding.text) &&
                  endsInside(finding.advice) && endsInside(finding.file);
        counts.at(static_cast<std::size_t>(finding.severity)) += finding.count;
        int places = 0;
        for (; report.GetPlaceNext(&place); ++places)
            isSound = isSound && place.line >= 0 && place.column >= 0 && endsInside(place.text);
        isSound = isSound && places == finding.placeNum;
    }
    for (int severity = 0; severity < 3; ++severity)
        isSound = isSound &&
                  report.GetSeverityCount(severity) == counts[static_cast<std::size_t>(severity)];
    for (report.GetCountBegin(); report.GetCountNext(&count);)
        isSound = isSound && endsInside(count.name) && count.count >= 0;
    isSound = isSound && report.GetFailure(&finding) == !imported;
    if (!isSound)
        std::abort();
}

}  // namespace kvocaeio::test
