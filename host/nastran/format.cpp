/// Nastran bulk data decks: how they are told from other files, and how they are read.
#include "nastran/format.h"

#include <algorithm>
#include <array>

#include "counted.h"
#include "file_head.h"
#include "nastran/deck.h"
#include "nastran/mesh.h"
#include "nastran/report.h"
#include "timed.h"
#include <kvocaeio/nastran.h>
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 4> kExtensions = {".nas", ".bdf", ".dat", ".nastran"};

// In upper case, as the reader wants them; "BEGIN" and "CEND" stand before the bulk data.
constexpr std::array<std::string_view, 12> kFirstWords = {"GRID",   "CTETRA", "CPENTA", "CHEXA",
                                                          "CQUAD4", "CTRIA3", "CBAR",   "CBEAM",
                                                          "CROD",   "PSOLID", "PSHELL", "CEND"};

bool recognises(std::string_view head) {
    return anyLine(head, [](std::string_view line) {
        return contains(kFirstWords, firstWord(line, " \t\r,*")) || line.starts_with("BEGIN BULK");
    });
}

std::string_view kindOf(const int* slots) {
    switch (cornersOf(slots)) {
        case 2:
            return "bars";
        case 4:
            return "tetrahedra";
        case 6:
            return "wedges";
        case 8:
            return "hexahedra";
        default:
            return "degenerate";
    }
}

void takeNodes(KVONASTRAN_Reader& reader, NastranReport& report) {
    report.nodeRows = reader.GetNodeCout();
    const float* row = reader.GetNodeVector();
    for (int i = 0; i < report.nodeRows; ++i, row += 4) {
        if (row[0] == 0.0f)
            continue;
        ++report.nodes;
        report.box.add(row + 1);
    }
}

void takeElements(KVONASTRAN_Reader& reader, NastranReport& report) {
    const float* nodes = reader.GetNodeVector();
    const auto isDefined = [&](int oid) {
        return oid >= 1 && oid <= report.nodeRows &&
               nodes[4 * (static_cast<std::size_t>(oid) - 1)] != 0.0f;
    };
    std::size_t undefinedNodes = 0;
    report.elementRows = reader.GetElemCout();
    const int* row = reader.GetElemVector();
    for (int i = 0; i < report.elementRows; ++i, row += 9) {
        if (row[0] == 0)
            continue;
        ++report.elements;
        count(report.kinds, kindOf(row + 1));
        undefinedNodes += static_cast<std::size_t>(8 - std::count_if(row + 1, row + 9, isDefined));
    }
    report.warn("undefined-node", undefinedNodes,
                "no such node: " + counted(undefinedNodes, "times") + " in elements");
}

std::unique_ptr<FileReport> read(const std::string& path, PrintTarget progress) {
    auto report = std::make_unique<NastranReport>();
    NastranDeck deck(path, progress);
    KVONASTRAN_Reader& reader = deck.reader;
    report->importSeconds = deck.importSeconds;
    report->imported = std::move(deck.imported);
    takeNodes(reader, *report);
    takeElements(reader, *report);
    const int* section = reader.GetSectionVector();
    for (int i = 0; i < reader.GetSectionCout(); ++i, section += 3)
        if (section[0] != 0 || section[1] != 0)
            report->sections.push_back({section[0], section[1], section[2]});
    report->materials = reader.GetPropertiesCout();
    report->warnOfNonFinite(report->box.nonFinite, "nodes");
    report->find(Finding::Level::kError, "free-fields", deck.freeCards,
                 "has free or large fields, which are read wrongly, on " +
                     counted(deck.freeCards, "cards") + std::string(kFixedFieldsOnly));
    return report;
}

ImportFindings check(const std::string& path, PrintTarget progress, CKVOImportReport& report) {
    KVONASTRAN_Reader reader;
    bool good = false;
    timed(progress, [&] { good = reader.SetFilePath(path.c_str(), &report); });
    ImportFindings findings;
    findings.take(report, good);
    return findings;
}

}  // namespace

const Format kNastranFormat = {
    .name = "Nastran bulk data",
    .code = "nastran",
    .extensions = kExtensions,
    .recognises = recognises,
    .read = read,
    .check = check,
    .takeMesh = takeNastranMesh,
    .tidyFormat = CKVODeckTidy::kNastran,
};

}  // namespace kvocaeio::host
