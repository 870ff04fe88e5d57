/// 3DI package files: how they are told from other files, and how they are read.
#include "package/format.h"

#include <array>
#include <new>
#include <stdexcept>

#include "file_head.h"
#include "memory_watch.h"
#include "package/report.h"
#include "timed.h"
#include <kvocaeio/package.h>
#include <kvocaeio/report.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 1> kExtensions = {".3di"};
constexpr std::array<std::string_view, 5> kFirstWords = {"3DI", "GEOMETRIES", "GEOM", "3DPL",
                                                         "WIRE_MODELS"};
constexpr std::array<std::string_view, 3> kTables = {"COLOR", "OBJECT", "LAYER"};

bool recognises(std::string_view head) {
    return anyLine(head, [](std::string_view line) {
        const std::string_view first = firstWord(line);
        const std::string word = upperCase(first);
        if (word == "TABLE") {
            const std::string_view rest = trimmed(line).substr(first.size());
            return contains(kTables, upperCase(firstWord(rest)));
        }
        return contains(kFirstWords, word);
    });
}

std::unique_ptr<FileReport> read(const std::string& path, PrintTarget progress) {
    CKVOCadenceReader reader;
    CKVOImportReport findings;
    bool isImported = false;
    Finding failure{Finding::Level::kError, "", 1, ""};
    const double seconds = timed(progress, [&] {
        const MemoryWatch memory;
        try {
            isImported = reader.Import3DIFile(path.c_str(), &findings);
            if (isImported)
                return;
            if (memory.ranOut())
                throw std::bad_alloc();
            failure.code = "no-symbol-or-outline";
            failure.text = "its object table has no SYMBOL or its layer table no OUTLINE";
            if (!MemoryWatch::kSeesLibrary)
                failure.text += " (or there is not enough memory)";
        } catch (const std::out_of_range&) {
            failure.code = "unknown-colour-or-layer";
            failure.text =
                "a body has no colour of the colour table, or no name and no layer; bodies after "
                "it and all wires are missing";
        }
    });
    auto report = std::make_unique<PackageReport>(reader, PackageSource::k3di);
    report->importSeconds = seconds;
    report->imported.take(findings, isImported);
    if (failure.code.empty() && report->isEmpty())
        failure = {Finding::Level::kError, "nothing-read", 1,
                   "holds no bodies and no wires of a 3DI package"};
    if (!failure.code.empty())
        report->findings.push_back(std::move(failure));
    return report;
}

ImportFindings check(const std::string& path, PrintTarget progress, CKVOImportReport& report) {
    CKVOCadenceReader reader;
    bool isImported = false;
    timed(progress, [&] {
        try {
            isImported = reader.Import3DIFile(path.c_str(), &report);
        } catch (const std::out_of_range&) {
            // The report holds the reason.
        }
    });
    ImportFindings findings;
    findings.take(report, isImported);
    return findings;
}

}  // namespace

const Format k3diFormat = {"3DI package", "3di", kExtensions, recognises,
                           read,          check, nullptr,     nullptr};

}  // namespace kvocaeio::host
