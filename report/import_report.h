/// What a report holds, and how an import fills one.
#pragma once

#include <array>
#include <cstddef>
#include <exception>
#include <string_view>

#include "text/findings.h"
#include <kvocaeio/report.h>

namespace kvocaeio::report {

/// The object behind an exported report.
struct ImportReport {
    struct Count {
        std::string_view name;
        long long count = 0;
    };
    static constexpr std::size_t kMostCounts = 24;

    void clear() noexcept;
    /// `name` is borrowed for good. Counts beyond `kMostCounts` are dropped.
    void addCount(std::string_view name, long long count) noexcept;

    text::Findings findings;
    std::array<Count, kMostCounts> counts;
    std::size_t countNum = 0;
    bool hasFailed = false;
};

/// The way from a report that a host hands in to what it holds.
struct Access {
    static ImportReport* contentOf(CKVOImportReport* report) {
        return report == nullptr ? nullptr : report->impl;
    }
    /// Forgets all, and where the walks are.
    static void clear(CKVOImportReport& report) {
        report.impl->clear();
        report.findingCursor = report.placeCursor = report.countCursor = 0;
    }
};

/// Runs an audit, which may need memory. A report says so where it could not be finished.
template <class Audit>
void runAudit(ImportReport& report, const Audit& audit) noexcept {
    try {
        audit(report);
    } catch (const std::exception&) {
        report.findings.note(rowOf(text::FileFinding::kReportIncomplete), 0, 0, {});
    }
}

/// Runs `stage(listener)` with the report, which may be null, listening, then `audit(report)`. Both
/// add to what the report holds.
template <class Stage, class Audit>
void runReportedOn(CKVOImportReport* report, const Stage& stage, const Audit& audit) {
    ImportReport* const content = Access::contentOf(report);
    if (content == nullptr)
        return stage(text::Listener{});
    stage(text::Listener{&content->findings, nullptr});
    runAudit(*content, audit);
}

/// Runs `import(listener)` with the report, which may be null, listening, then `audit(report)` over
/// the tables that it has filled. Returns what the import returns.
template <class Import, class Audit>
bool runReported(CKVOImportReport* report, const Import& import, const Audit& audit) {
    ImportReport* const content = Access::contentOf(report);
    if (content == nullptr)
        return import(text::Listener{});
    Access::clear(*report);
    content->hasFailed = true;  // if the import throws
    const bool imported = import(text::Listener{&content->findings, nullptr});
    content->hasFailed = !imported;
    if (imported)
        runAudit(*content, audit);
    return imported;
}

}  // namespace kvocaeio::report
