/// The call, with its report taken over.
#include "tidy/tidy_run.h"

#include <optional>

#include "clean_name.h"
#include "counted.h"
#include "file_system.h"
#include "input_file.h"
#include "progress_line.h"
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace kvocaeio::host {

namespace {

bool callTidy(CKVODeckTidy& tidy, const std::string& path, const std::string& target, int format,
              CKVOImportReport& report) {
    const auto source = standardPath(path);
    if (target.empty()) {
        const ProgressLine line("examining");
        return tidy.Tidy(source.c_str(), nullptr, format, &report);
    }
    // The library's own temporary file has a name that nobody knows, so an interruption must wait.
    const InterruptionPause pause;
    const ProgressLine line("tidying");
    return tidy.Tidy(source.c_str(), standardPath(target).c_str(), format, &report);
}

/// "the included file a.bdf is not there (line 3 of part.bdf)"
std::string failureText(const CKVOImportReport::FindingData& finding, const std::string& path,
                        const std::string& name) {
    std::string text = cleanName(finding.text);
    if (finding.line == 0)
        return text;
    text += " (line " + std::to_string(finding.line);
    if (finding.file != path)
        text += " of " + cleanName(finding.file);
    else if (name != path)
        text += " of " + shownName(name);
    return text + ")";
}

}  // namespace

TidyRun runTidy(CKVODeckTidy& tidy, const std::string& path, const std::string& name,
                const std::string& target, int format) {
    CKVOImportReport report;
    TidyRun run;
    run.good = callTidy(tidy, path, target, format, report);
    run.findings.take(report, run.good);
    run.findings.rename(path, name);
    CKVOImportReport::FindingData finding;
    if (report.GetFailure(&finding)) {
        run.failureCode = finding.code;
        run.failure = failureText(finding, path, name);
    } else if (!run.good) {
        run.failure = "the library does not say why";
    }
    return run;
}

std::string asText(const Tally& tally) {
    std::string words;
    for (const Level level : {Level::kError, Level::kWarning, Level::kNote})
        if (const std::size_t number = tally.of(level); number != 0)
            words +=
                (words.empty() ? "" : ", ") + counted(number, std::string(nameOf(level)) + "s");
    return words;
}

}  // namespace kvocaeio::host
