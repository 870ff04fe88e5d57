/// 3DI package files: how they are told from other files, and how they are read.
#include "package/format.h"

#include <array>
#include <new>
#include <stdexcept>

#include "file_head.h"
#include "memory_watch.h"
#include "mesh_checks.h"
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

/// A package file, imported.
struct Import {
    Import(const std::string& path, PrintTarget progress) {
        CKVOImportReport findings;
        bool isImported = false;
        seconds = timed(progress, [&] {
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
                    "a body has no colour of the colour table, or no name and no layer; bodies "
                    "after it and all wires are missing";
            }
        });
        imported.take(findings, isImported);
        if (failure.code.empty() && reader.GetComponentCount() == 0 &&
            reader.GetWireLineCount() == 0)
            failure = {Finding::Level::kError, "nothing-read", 1,
                       "holds no bodies and no wires of a 3DI package"};
    }

    CKVOCadenceReader reader;
    ImportFindings imported;
    double seconds = 0.0;
    Finding failure{Finding::Level::kError, "", 1, ""};  ///< without a code where it is good
};

std::unique_ptr<FileReport> read(const std::string& path, PrintTarget progress) {
    Import import(path, progress);
    auto report = std::make_unique<PackageReport>(import.reader, PackageSource::k3di);
    report->importSeconds = import.seconds;
    report->imported = std::move(import.imported);
    if (!import.failure.code.empty())
        report->findings.push_back(std::move(import.failure));
    return report;
}

PackageScene takePackage(const std::string& path, const MeshRequest& request) {
    refuseNormalised(request.normalised);
    Import import(path, request.progress);
    if (!import.failure.code.empty() && !request.force)
        throw FileError(import.failure.text, import.failure.code);
    PackageScene scene = takeScene(import.reader, PackageSource::k3di);
    scene.imported = std::move(import.imported);
    return scene;
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

const Format k3diFormat = {
    .name = "3DI package",
    .code = "3di",
    .extensions = kExtensions,
    .recognises = recognises,
    .read = read,
    .check = check,
    .takeScene = takePackage,
};

}  // namespace kvocaeio::host
