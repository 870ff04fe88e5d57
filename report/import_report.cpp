/// The exported report: its life, and the walks over findings, places and counts.
#include "report/import_report.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string_view>

#include "report/sentence.h"

using kvocaeio::report::copyText;
using kvocaeio::report::ImportReport;
using kvocaeio::text::FindingEntry;
using kvocaeio::text::Findings;

namespace kvocaeio::report {

void ImportReport::clear() noexcept {
    findings.clear();
    countNum = 0;
    hasFailed = false;
}

void ImportReport::addCount(std::string_view name, long long count) noexcept {
    if (countNum < kMostCounts)
        counts[countNum++] = {name, count};
}

}  // namespace kvocaeio::report

namespace {

int hostColumn(std::uint32_t column) {
    return static_cast<int>(std::min<std::uint32_t>(column, std::numeric_limits<int>::max()));
}

// An entry is made with its first place.
void fillFinding(const Findings& findings, const FindingEntry& entry,
                 CKVOImportReport::FindingData& out, std::size_t place = 0) {
    const auto& first = entry.first[place];
    out.severity = static_cast<int>(entry.kind->severity);
    out.line = static_cast<long long>(first.line);
    out.column = hostColumn(first.column);
    out.count = static_cast<long long>(entry.count);
    out.placeNum = entry.placeCount;
    copyText(entry.kind->code, out.code);
    kvocaeio::report::writeSentence(entry, first, out.text);
    copyText(entry.kind->advice, out.advice);
    copyText(findings.file(first.file), out.file);
}

// Whether `cursor` stands on one of `count` entries; if so, it moves on.
bool takeNext(std::size_t count, int& cursor) {
    if (static_cast<std::size_t>(cursor) >= count)
        return false;
    ++cursor;
    return true;
}

}  // namespace

CKVOImportReport::CKVOImportReport()
    : impl(new ImportReport), findingCursor(0), placeCursor(0), countCursor(0) {}

CKVOImportReport::~CKVOImportReport() {
    delete impl;
}

void CKVOImportReport::Clear() {
    kvocaeio::report::Access::clear(*this);
}

int CKVOImportReport::GetFindingNum() {
    return static_cast<int>(impl->findings.entryCount());
}

bool CKVOImportReport::GetFindingBegin() {
    findingCursor = placeCursor = 0;
    return GetFindingNum() > 0;
}

bool CKVOImportReport::GetFindingNext(FindingData* out) {
    const Findings& findings = impl->findings;
    if (!takeNext(findings.entryCount(), findingCursor))
        return false;
    placeCursor = 0;
    fillFinding(findings, findings.entry(static_cast<std::size_t>(findingCursor) - 1), *out);
    return true;
}

bool CKVOImportReport::GetPlaceNext(PlaceData* out) {
    const Findings& findings = impl->findings;
    const auto row = static_cast<std::size_t>(findingCursor);
    if (row == 0 || row > findings.entryCount())
        return false;
    const auto places = findings.entry(row - 1).places();
    if (!takeNext(places.size(), placeCursor))
        return false;
    const auto& place = places[static_cast<std::size_t>(placeCursor) - 1];
    out->line = static_cast<long long>(place.line);
    out->column = hostColumn(place.column);
    copyText(place.text(), out->text);
    copyText(findings.file(place.file), out->file);
    return true;
}

long long CKVOImportReport::GetSeverityCount(int severity) {
    std::size_t sum = 0;
    for (std::size_t row = 0; row < impl->findings.entryCount(); ++row) {
        const FindingEntry& entry = impl->findings.entry(row);
        if (static_cast<int>(entry.kind->severity) == severity)
            sum += entry.count;
    }
    return static_cast<long long>(sum);
}

long long CKVOImportReport::GetCodeCount(const char* code) {
    std::size_t sum = 0;
    for (std::size_t row = 0; row < impl->findings.entryCount(); ++row) {
        const FindingEntry& entry = impl->findings.entry(row);
        if (entry.kind->code == code)
            sum += entry.count;
    }
    return static_cast<long long>(sum);
}

bool CKVOImportReport::GetFailure(FindingData* out) {
    const FindingEntry* const reason = impl->findings.lastError();
    if (!impl->hasFailed || reason == nullptr)
        return false;
    fillFinding(impl->findings, *reason, *out, impl->findings.lastErrorPlace());
    return true;
}

int CKVOImportReport::GetCountNum() {
    return static_cast<int>(impl->countNum);
}

bool CKVOImportReport::GetCountBegin() {
    countCursor = 0;
    return impl->countNum > 0;
}

bool CKVOImportReport::GetCountNext(CountData* out) {
    if (!takeNext(impl->countNum, countCursor))
        return false;
    const ImportReport::Count& count = impl->counts[static_cast<std::size_t>(countCursor) - 1];
    copyText(count.name, out->name);
    out->count = count.count;
    return true;
}
