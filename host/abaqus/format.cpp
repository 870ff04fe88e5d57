/// Abaqus input decks: how they are told from other files, and how they are read.
#include "abaqus/format.h"

#include <array>

#include "abaqus/debug_logs.h"
#include "abaqus/deck.h"
#include "abaqus/mesh.h"
#include "abaqus/report.h"
#include "abaqus/solids.h"
#include "file_head.h"
#include "timed.h"
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 1> kExtensions = {".inp"};

// A file without any of them holds nothing that the reader takes in.
constexpr std::array<std::string_view, 6> kKeywords = {"*NODE",    "*ELEMENT", "*ELSET",
                                                       "*SURFACE", "*DLOAD",   "*SHELL SECTION"};

bool recognises(std::string_view head) {
    return anyLine(head, [](std::string_view line) {
        return contains(kKeywords, upperCase(trimmed(line.substr(0, line.find(',')))));
    });
}

std::unique_ptr<FileReport> read(const std::string& path, PrintTarget progress) {
    const DebugLogs logs(path);
    auto report = std::make_unique<AbaqusReport>(AbaqusDeck(path, progress));
    logs.addTo(report->findings);
    return report;
}

ImportFindings check(const std::string& path, PrintTarget progress, CKVOImportReport& report) {
    const DebugLogs logs(path);
    CKVOAbaqusReader reader;
    bool isImported = false;
    std::string sortFailure;
    timed(progress, [&] {
        isImported = reader.ImportInpFile(path.c_str(), &report);
        if (isImported)
            sortFailure = sortFailureOf(reader, report);
    });
    ImportFindings findings;
    findings.take(report, isImported);
    if (!sortFailure.empty())
        findings.add(Level::kError, "abaqus.not-normalised",
                     "the deck cannot be normalised: " + sortFailure, path);
    std::vector<Finding> notes;
    logs.addTo(notes);
    for (const Finding& note : notes)
        findings.add(note.level, "abaqus." + std::string(note.code), note.text, path);
    return findings;
}

}  // namespace

const Format kAbaqusFormat = {
    .name = "Abaqus input deck",
    .code = "abaqus",
    .extensions = kExtensions,
    .recognises = recognises,
    .read = read,
    .check = check,
    .takeSolids = takeAbaqusSolids,
    .takeMesh = takeAbaqusMesh,
    .tidyFormat = CKVODeckTidy::kAbaqus,
};

}  // namespace kvocaeio::host
