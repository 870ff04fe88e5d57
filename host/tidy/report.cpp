/// The line and the document.
#include "tidy/report.h"

#include <cstdio>
#include <nlohmann/json.hpp>

#include "clean_name.h"
#include "counted.h"
#include "json_values.h"
#include "version_text.h"

namespace kvocaeio::host {

namespace {

std::string deviationText(double deviation) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.2g", deviation);
    return digits;
}

std::string_view statusOf(const TidyResult& result) {
    if (!result.failureCode.empty())
        return "failed";
    return result.run.findings.tally().of(Level::kWarning) != 0 ? "warnings" : "ok";
}

}  // namespace

std::string tidyText(const TidyResult& result, const TidyOptions& options) {
    std::string line = cleanName(options.target);
    line += result.isChanged ? ": rewritten" : ": nothing needs to be changed: copied";
    for (const auto& [name, count] : result.run.findings.counts)
        if (count != 0)
            line += ", " + counted(static_cast<std::size_t>(count), name);
    if (result.deviation != 0.0)
        line += "; coordinates change by at most " + deviationText(result.deviation);
    const std::string findings = asText(result.run.findings.tally());
    if (!findings.empty())
        line += "; " + findings + (options.report ? "" : " (--report lists them)");
    return line + '\n';
}

std::string tidyJson(const TidyResult& result, const TidyOptions& options) {
    const bool isWritten = result.failureCode.empty();
    Json written;
    if (isWritten) {
        written = {{"changed", result.isChanged}};
        for (const auto& [name, count] : result.run.findings.counts)
            written[name] = count;
        written["deviation"] = result.deviation;
    }
    Json failure;
    if (!isWritten)
        failure = {{"code", result.failureCode}, {"text", result.failure}};
    Json report = {{"version", kJsonVersion},
                   {"library", libraryVersion()},
                   {"source", options.source},
                   {"target", options.target},
                   {"map", options.mapFile.empty() ? Json() : Json(options.mapFile)},
                   {"format", result.format.empty() ? Json() : Json(result.format)},
                   {"status", statusOf(result)},
                   {"written", std::move(written)},
                   {"failure", std::move(failure)}};
    report.update(asJson(result.run.findings));
    // Names may be of any encoding; bytes that are no UTF-8 become replacement characters.
    return report.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace kvocaeio::host
