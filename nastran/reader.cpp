/// The exported reader: the arrays of the deck that it read last.
#include <algorithm>

#include "nastran/audit.h"
#include "nastran/import.h"
#include "nastran/tables.h"
#include "report/import_report.h"
#include <kvocaeio/nastran.h>

using namespace kvocaeio;

KVONASTRAN_Reader::KVONASTRAN_Reader()
    : nodeVector(nullptr),
      elemVector(nullptr),
      sectionVector(nullptr),
      materialFlags(nullptr),
      sectionCount(0),
      info(new nastran::NastranFileInfo) {}

KVONASTRAN_Reader::KVONASTRAN_Reader(const KVONASTRAN_Reader&) = default;
KVONASTRAN_Reader& KVONASTRAN_Reader::operator=(const KVONASTRAN_Reader&) = default;

KVONASTRAN_Reader::~KVONASTRAN_Reader() {
    delete info;
}

bool KVONASTRAN_Reader::SetFilePath(const char* path) {
    return SetFilePath(path, nullptr);
}

bool KVONASTRAN_Reader::SetFilePath(const char* path, CKVOImportReport* report) {
    const auto import = [&](const text::Listener& listener) {
        return nastran::importDeck(path, *info, listener);
    };
    const auto audit = [&](report::ImportReport& filled) {
        nastran::auditDeck(info->decks.back(), filled);
    };
    if (!report::runReported(report, import, audit))
        return false;
    const nastran::DeckTables& deck = info->decks.back();
    nodeVector = deck.nodes.get();
    elemVector = deck.elements.get();
    sectionVector = deck.sections.get();
    materialFlags = deck.materialFlags.get();
    sectionCount = deck.sectionCount;
    return true;
}

int KVONASTRAN_Reader::GetNodeCout() {
    return info->extent.maxNodeId;
}

int KVONASTRAN_Reader::GetElemCout() {
    return info->extent.maxElemId;
}

int KVONASTRAN_Reader::GetSectionCout() {
    return sectionCount;
}

// A copy of the reader may have read another deck since: the rows are those of the deck whose
// arrays are held here.
int KVONASTRAN_Reader::GetPropertiesCout() {
    const auto deck = std::ranges::find_if(info->decks, [this](const nastran::DeckTables& tables) {
        return tables.sections.get() == sectionVector;
    });
    return deck == info->decks.end() ? 0 : nastran::countMaterials(*deck);
}

float* KVONASTRAN_Reader::GetNodeVector() {
    return nodeVector;
}

int* KVONASTRAN_Reader::GetElemVector() {
    return elemVector;
}

int* KVONASTRAN_Reader::GetSectionVector() {
    return sectionVector;
}
