/// The import, and why the reader refused a deck.
#include "nastran/deck.h"

#include "counted.h"
#include "file_report.h"
#include "timed.h"
#include <kvocaeio/report.h>

namespace kvocaeio::host {

namespace {

FileError refusalOf(CKVOImportReport& findings, std::size_t freeCards) {
    CKVOImportReport::FindingData failure{};
    findings.GetFailure(&failure);
    if (std::string_view(failure.code) == "file.out-of-memory")
        return FileError(
            "cannot be read: there is not enough memory for its rows, one for each "
            "OID up to the largest",
            "out-of-memory");
    if (freeCards != 0)
        return FileError("has free or large fields on " + counted(freeCards, "cards") +
                             std::string(kFixedFieldsOnly),
                         "free-fields");
    return FileError("cannot be read: " + std::string(failure.text), "nothing-read");
}

}  // namespace

NastranDeck::NastranDeck(const std::string& path, PrintTarget progress) {
    CKVOImportReport report;
    bool good = false;
    importSeconds = timed(progress, [&] { good = reader.SetFilePath(path.c_str(), &report); });
    imported.take(report, good);
    freeCards = imported.countOf("nastran.free-field") + imported.countOf("nastran.large-field");
    if (!good)
        throw refusalOf(report, freeCards);
}

int cornersOf(const int* slots) {
    int corners = 8;
    while (corners > 1 && slots[corners - 2] == slots[corners - 1])
        --corners;
    return corners;
}

}  // namespace kvocaeio::host
