/// The exported report of the C interface.
#include "c/report.h"

#include <algorithm>
#include <array>
#include <limits>
#include <new>
#include <utility>

#include "c/versioned.h"
#include "report/sentence.h"

namespace kvocaeio::c_interface {

namespace {

using report::ImportReport;
using text::FindingEntry;
using text::FindingPlace;
using text::Findings;

// Findings of imports that say what the tidy run has said with a place in the original.
constexpr std::array<std::pair<std::string_view, std::string_view>, 2> kToldByTidy{{
    {"abaqus.set-shadows-block", "tidy.abaqus-set-of-block"},
    {"nastran.shell-empty", "tidy.nastran-shell"},
}};

template <class Matches>
bool anyEntry(const Findings& findings, const Matches& matches) {
    for (std::size_t row = 0; row < findings.entryCount(); ++row)
        if (matches(findings.entry(row)))
            return true;
    return false;
}

void addCounts(const ImportReport& from, ImportReport& to) {
    const auto known = to.countNum;
    for (std::size_t i = 0; i < from.countNum; ++i) {
        const ImportReport::Count& count = from.counts[i];
        const auto end = to.counts.begin() + static_cast<std::ptrdiff_t>(known);
        if (std::none_of(to.counts.begin(), end,
                         [&](const auto& other) { return other.name == count.name; }))
            to.addCount(count.name, count.count);
    }
}

bool isTold(const FindingEntry& entry, const Findings& byTidy) {
    if (entry.kind->severity == text::Severity::kNote && entry.first[0].line != 0)
        return true;
    return std::ranges::any_of(kToldByTidy, [&](const auto& codes) {
        return codes.first == entry.kind->code && anyEntry(byTidy, [&](const FindingEntry& other) {
                   return other.kind->code == codes.second;
               });
    });
}

std::int32_t hostColumn(std::uint32_t column) {
    return static_cast<std::int32_t>(
        std::min<std::uint32_t>(column, std::numeric_limits<std::int32_t>::max()));
}

kvocaeio_finding findingOf(const Findings& findings, const FindingEntry& entry,
                           std::size_t place = 0) {
    const FindingPlace& first = entry.first[place];
    kvocaeio_finding finding{};
    finding.severity = static_cast<std::int32_t>(entry.kind->severity);
    finding.line = static_cast<std::int64_t>(first.line);
    finding.column = hostColumn(first.column);
    finding.count = static_cast<std::int64_t>(entry.count);
    finding.place_count = entry.placeCount;
    report::copyText(entry.kind->code, finding.code);
    report::writeSentence(entry, first, finding.text);
    report::copyText(entry.kind->advice, finding.advice);
    report::copyText(findings.file(first.file), finding.file);
    return finding;
}

template <class Matches>
std::int64_t countEntries(const kvocaeio_report* report, const Matches& matches) {
    std::size_t sum = 0;
    for (std::size_t row = 0; report != nullptr && row < report->content.findings.entryCount();
         ++row) {
        const FindingEntry& entry = report->content.findings.entry(row);
        sum += matches(*entry.kind) ? entry.count : 0;
    }
    return static_cast<std::int64_t>(sum);
}

}  // namespace

void addSecondReading(const ImportReport& second, ImportReport& report) {
    for (std::size_t row = 0; row < second.findings.entryCount(); ++row) {
        const FindingEntry& entry = second.findings.entry(row);
        if (anyEntry(report.findings, [&](const FindingEntry& known) {
                return known.kind == entry.kind && known.subject() == entry.subject();
            }))
            continue;
        for (const FindingPlace& place : entry.places()) {
            report.findings.beginFile(second.findings.file(place.file));
            report.findings.note(*entry.kind, place.line, place.column, place.text(),
                                 entry.subject());
        }
        report.findings.countMore(*entry.kind, entry.subject(), entry.count - entry.placeCount);
    }
    addCounts(second, report);
}

void addTidiedReading(const ImportReport& import, std::string_view name, ImportReport& report) {
    report.findings.beginFile(name);
    for (std::size_t row = 0; row < import.findings.entryCount(); ++row) {
        const FindingEntry& entry = import.findings.entry(row);
        if (isTold(entry, report.findings))
            continue;
        for (const FindingPlace& place : entry.places())
            report.findings.note(*entry.kind, 0, 0, place.text(), entry.subject());
        report.findings.countMore(*entry.kind, entry.subject(), entry.count - entry.placeCount);
    }
    addCounts(import, report);
}

}  // namespace kvocaeio::c_interface

using namespace kvocaeio::c_interface;
using kvocaeio::text::FindingEntry;
using kvocaeio::text::FindingKind;
using kvocaeio::text::FindingPlace;
using kvocaeio::text::Findings;

kvocaeio_status kvocaeio_report_create(kvocaeio_report** report) {
    if (report == nullptr)
        return fail(KVOCAEIO_BAD_ARGUMENT, "no place for the report is given");
    *report = nullptr;
    return guarded([&] {
        *report = new kvocaeio_report;
        return kvocaeio_status{KVOCAEIO_OK};
    });
}

void kvocaeio_report_destroy(kvocaeio_report* report) {
    delete report;
}

std::size_t kvocaeio_report_finding_count(const kvocaeio_report* report) {
    return report == nullptr ? 0 : report->content.findings.entryCount();
}

kvocaeio_status kvocaeio_report_finding(const kvocaeio_report* report, std::size_t index,
                                        kvocaeio_finding* finding) {
    if (index >= kvocaeio_report_finding_count(report))
        return fail(KVOCAEIO_BAD_ARGUMENT, "the report has no finding of that index");
    const Findings& findings = report->content.findings;
    return hand(findingOf(findings, findings.entry(index)), finding);
}

kvocaeio_status kvocaeio_report_place(const kvocaeio_report* report, std::size_t index,
                                      std::size_t placeIndex, kvocaeio_place* place) {
    if (index >= kvocaeio_report_finding_count(report) ||
        placeIndex >= report->content.findings.entry(index).placeCount)
        return fail(KVOCAEIO_BAD_ARGUMENT, "the report has no such place");
    const Findings& findings = report->content.findings;
    const FindingPlace& from = findings.entry(index).first[placeIndex];
    kvocaeio_place to{};
    to.line = static_cast<std::int64_t>(from.line);
    to.column = hostColumn(from.column);
    kvocaeio::report::copyText(from.text(), to.text);
    kvocaeio::report::copyText(findings.file(from.file), to.file);
    return hand(to, place);
}

std::int64_t kvocaeio_report_severity_count(const kvocaeio_report* report, std::int32_t severity) {
    return countEntries(report, [&](const FindingKind& kind) {
        return static_cast<std::int32_t>(kind.severity) == severity;
    });
}

std::int64_t kvocaeio_report_code_count(const kvocaeio_report* report, const char* code) {
    return countEntries(
        report, [&](const FindingKind& kind) { return code != nullptr && kind.code == code; });
}

std::int32_t kvocaeio_report_failure(const kvocaeio_report* report, kvocaeio_finding* finding) {
    if (report == nullptr || !report->content.hasFailed)
        return 0;
    const Findings& findings = report->content.findings;
    const FindingEntry* const reason = findings.lastError();
    return reason != nullptr &&
           hand(findingOf(findings, *reason, findings.lastErrorPlace()), finding) == KVOCAEIO_OK;
}

std::size_t kvocaeio_report_count_count(const kvocaeio_report* report) {
    return report == nullptr ? 0 : report->content.countNum;
}

kvocaeio_status kvocaeio_report_count(const kvocaeio_report* report, std::size_t index,
                                      kvocaeio_count* count) {
    if (index >= kvocaeio_report_count_count(report))
        return fail(KVOCAEIO_BAD_ARGUMENT, "the report has no count of that index");
    kvocaeio_count to{};
    to.count = report->content.counts[index].count;
    kvocaeio::report::copyText(report->content.counts[index].name, to.name);
    return hand(to, count);
}
