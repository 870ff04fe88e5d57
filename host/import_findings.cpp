/// The walks through a report, and its findings as JSON.
#include "import_findings.h"

#include <algorithm>
#include <functional>
#include <nlohmann/json.hpp>
#include <tuple>

#include <kvocaeio/report.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 3> kLevelNames = {"note", "warning", "error"};

ImportFinding findingOf(const CKVOImportReport::FindingData& data, CKVOImportReport& report) {
    ImportFinding finding;
    finding.level = static_cast<Level>(data.severity);
    finding.code = data.code;
    finding.text = data.text;
    finding.advice = data.advice;
    finding.file = data.file;
    finding.count = data.count;
    CKVOImportReport::PlaceData place;
    while (report.GetPlaceNext(&place))
        finding.places.push_back({place.line, place.column, place.text});
    if (finding.places.empty())
        finding.places.push_back({data.line, data.column, ""});
    return finding;
}

/// null for 0, which stands for none.
Json numberAsJson(long long number) {
    return number == 0 ? Json() : Json(number);
}

}  // namespace

std::string_view nameOf(Level level) {
    return kLevelNames[static_cast<std::size_t>(level)];
}

void Tally::add(const Tally& other) {
    std::ranges::transform(numbers, other.numbers, numbers.begin(), std::plus());
}

bool ImportFinding::operator==(const ImportFinding& other) const {
    const Place& first = places.front();
    const Place& otherFirst = other.places.front();
    return std::tie(first.line, first.column, first.text, code, text, file) ==
           std::tie(otherFirst.line, otherFirst.column, otherFirst.text, other.code, other.text,
                    other.file);
}

void ImportFindings::take(CKVOImportReport& report, bool imported) {
    CKVOImportReport::FindingData data;
    for (report.GetFindingBegin(); report.GetFindingNext(&data);) {
        ImportFinding finding = findingOf(data, report);
        const auto known = std::ranges::find(findings, finding);
        if (known == findings.end())
            findings.push_back(std::move(finding));
        else
            known->count = std::max(known->count, finding.count);
    }
    CKVOImportReport::CountData count;
    for (report.GetCountBegin(); report.GetCountNext(&count);)
        if (std::ranges::none_of(counts,
                                 [&](const auto& known) { return known.first == count.name; }))
            counts.emplace_back(count.name, count.count);
    failed = failed || !imported;
}

void ImportFindings::add(Level level, const std::string& code, const std::string& text,
                         const std::string& file) {
    findings.push_back({level, code, text, "", file, 1, {{}}});
}

void ImportFindings::rename(const std::string& read, const std::string& shown) {
    for (ImportFinding& finding : findings)
        if (finding.file == read)
            finding.file = shown;
}

void ImportFindings::sort() {
    std::ranges::stable_sort(findings, {}, [](const ImportFinding& finding) {
        const ImportFinding::Place& first = finding.places.front();
        return std::tuple(std::string_view(finding.file), first.line == 0, first.line,
                          first.column);
    });
}

Tally ImportFindings::tally() const {
    Tally tally;
    for (const ImportFinding& finding : findings)
        tally.add(finding.level);
    return tally;
}

std::size_t ImportFindings::countOf(std::string_view code) const {
    std::size_t count = 0;
    for (const ImportFinding& finding : findings)
        if (finding.code == code)
            count += static_cast<std::size_t>(finding.count);
    return count;
}

const ImportFinding* ImportFindings::firstError() const {
    const auto error = std::ranges::find(findings, Level::kError, &ImportFinding::level);
    return error == findings.end() ? nullptr : &*error;
}

Json asJson(const ImportFinding& finding) {
    Json places = Json::array();
    for (const auto& [line, column, text] : finding.places)
        places.push_back(
            {{"line", numberAsJson(line)}, {"column", numberAsJson(column)}, {"text", text}});
    const ImportFinding::Place& first = finding.places.front();
    return {{"file", finding.file},
            {"line", numberAsJson(first.line)},
            {"column", numberAsJson(first.column)},
            {"severity", nameOf(finding.level)},
            {"code", finding.code},
            {"count", finding.count},
            {"text", finding.text},
            {"advice", finding.advice.empty() ? Json() : Json(finding.advice)},
            {"places", std::move(places)}};
}

Json asJson(const Tally& tally) {
    return {{"errors", tally.of(Level::kError)},
            {"warnings", tally.of(Level::kWarning)},
            {"notes", tally.of(Level::kNote)}};
}

Json asJson(const ImportFindings& import) {
    Json object = asJson(import.tally());
    Json& rows = object["findings"] = Json::array();
    for (const ImportFinding& finding : import.findings)
        rows.push_back(asJson(finding));
    return object;
}

}  // namespace kvocaeio::host
